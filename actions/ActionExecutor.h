#pragma once

#include "profiles/TapAction.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace brimlow {

/// Performs the action of a binding through the session. Stateless; main thread.
class ActionExecutor {
public:
    /// Performs `action` and returns one line for the log that says what was done, or why not. The
    /// three texts of the target matter to openApp (appName: a bundle identifier or a name) and to
    /// focusWindow (appName: a bundle identifier) only.
    QString execute(TapAction action, const std::optional<QString>& appName,
                    const std::optional<QString>& windowTitle,
                    std::optional<std::uint32_t> targetWindowID);

private:
    QString perform(TapAction action, const QString& appName);
    void executeCloseWindow();
    QString executeHideAll();

    // ApplicationLaunch.cpp
    QString executeOpenApp(const QString& name);
    QString executeFocusApp(const QString& bundleId);
};

} // namespace brimlow
