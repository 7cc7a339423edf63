#pragma once

#include <QProcessEnvironment>
#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace brimlow::desktop {

/// A window as the window manager tells of it.
struct DesktopWindow {
    std::uint32_t number = 0;
    qint64 pid = 0;
    int workspace = 0; // from 0; -1 on all of them
    QString className; // "instance.Class"
    bool hidden = false;
};

/// What the window manager says of a desktop at one moment, read by wmctrl and xprop: tools that
/// know nothing of us, so that they can be witnesses.
struct DesktopState {
    int workspaces = 0;
    int currentWorkspace = -1;      // from 0
    std::uint32_t activeWindow = 0; // 0 when none has the focus
    std::vector<DesktopWindow> windows;

    const DesktopWindow* window(std::uint32_t number) const;
    int hiddenWindows() const;
};

/// Absent when there is no window manager to ask.
std::optional<DesktopState> readDesktopState(const QProcessEnvironment& environment);

} // namespace brimlow::desktop
