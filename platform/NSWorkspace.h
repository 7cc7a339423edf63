#pragma once

#include "platform/NSRunningApplication.h"

#include <QImage>

#include <optional>
#include <vector>

namespace brimlow::platform {

/// The applications of this session and of this machine.
class NSWorkspace {
public:
    /// Main thread.
    static std::vector<NSRunningApplication> runningApplications() {
        return NSRunningApplication::all();
    }
    /// Where an installed application is, also one that menus hide; absent when there is none of
    /// that identifier. Any thread.
    static std::optional<QString> URLForApplicationWithBundleIdentifier(const QString& identifier);
    /// Brings the application at that place to the front, and starts it when it does not run.
    /// Returns at once; a start that fails is told on standard error. Main thread.
    static void openApplicationAtURL(const QString& path);
    /// Opens an address of the system's settings; false, and nothing happens, for any other. Main
    /// thread.
    static bool openURL(const QString& address);
    /// Shows the file at `path` in its folder. Main thread.
    static void activateFileViewerSelecting(const QString& path);
    /// The icon of the application at that place, as Icons::image has it. Any thread.
    static QImage iconForFile(const QString& path, int points);
};

} // namespace brimlow::platform
