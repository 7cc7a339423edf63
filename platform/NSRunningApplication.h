#pragma once

#include "platform/Session.h"

#include <QString>

#include <optional>
#include <vector>

namespace brimlow::platform {

enum class NSApplicationActivationPolicy { regular, accessory };

/// One process that runs an application, as it was when it was asked for. Main thread.
class NSRunningApplication {
public:
    /// Those that have a window, in the order in which they opened their first. A process that runs
    /// several applications is listed once for each. Empty when the session cannot be asked.
    static std::vector<NSRunningApplication> all();
    static std::vector<NSRunningApplication>
    runningApplicationsWithBundleIdentifier(const QString& bundleIdentifier);

    const QString& bundleIdentifier() const { return bundleIdentifier_; }
    /// 0 when its windows do not tell.
    pid_t processIdentifier() const { return processIdentifier_; }
    /// Absent when its windows tell nothing of what it is.
    std::optional<QString> localizedName() const;
    /// Regular when it has an ordinary window in the session's task list.
    NSApplicationActivationPolicy activationPolicy() const;
    /// A window of the application has the focus, be it of this process or of another one.
    bool isActive() const { return active_; }
    /// All of its ordinary windows are hidden.
    bool isHidden() const;
    /// Minimises its ordinary windows; whether any was.
    bool hide() const;
    /// Brings the application to the front: that window of it, of this or another process, that was
    /// raised last; one that is hidden only if all are. Whether the session took the request.
    bool activateWithOptions() const;

private:
    NSRunningApplication(QString bundleIdentifier, pid_t processIdentifier)
        : bundleIdentifier_(std::move(bundleIdentifier)), processIdentifier_(processIdentifier) {}

    QString bundleIdentifier_;
    pid_t processIdentifier_;
    bool active_ = false;
    std::vector<Window> windows_; // bottom to top
};

} // namespace brimlow::platform
