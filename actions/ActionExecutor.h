#pragma once

#include "platform/Observable.h"
#include "profiles/TapAction.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace brimlow {

/// Performs the action of a binding through the session. Keeps no state; main thread.
class ActionExecutor {
public:
    /// Performs `action` and returns one line for the log that says what was done, or why not. The
    /// last three matter to openApp (appName: a bundle identifier or a name) and to focusWindow
    /// (appName: a bundle identifier) only. A window is focused later, once its application has
    /// come to the front, unless this object is gone by then.
    QString execute(TapAction action, const std::optional<QString>& appName,
                    const std::optional<QString>& windowTitle,
                    std::optional<std::uint32_t> targetWindowID);

private:
    void executeCloseWindow();
    QString executeHideAll();

    // ApplicationLaunch.cpp
    QString executeOpenApp(const QString& name);
    static std::optional<QString> findApplicationByName(const QString& name);
    static QString applicationDisplayName(const QString& url);
    QString executeFocusApp(const QString& bundleId);

    // WindowFocus.cpp
    QString focusWindow(const QString& bundleId, const QString& windowTitle,
                        std::optional<std::uint32_t> targetWindowID);
    std::optional<QString> executeFocusByWindowID(std::uint32_t windowID, const QString& bundleId);

    // WindowFocusByTitle.cpp
    QString executeFocusWindow(const QString& bundleId, const QString& titleSubstring);

    platform::Lifetime lifetime_;
};

} // namespace brimlow
