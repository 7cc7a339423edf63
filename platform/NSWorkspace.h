#pragma once

#include "platform/Session.h"

#include <QString>

#include <vector>

namespace brimlow::platform {

enum class NSApplicationActivationPolicy { regular, accessory };

/// One running application, as it was when it was asked for. Main thread.
class NSRunningApplication {
public:
    NSRunningApplication(QString bundleIdentifier, pid_t processIdentifier)
        : bundleIdentifier_(std::move(bundleIdentifier)), processIdentifier_(processIdentifier) {}

    const QString& bundleIdentifier() const { return bundleIdentifier_; }
    pid_t processIdentifier() const { return processIdentifier_; }
    /// Regular when it has an ordinary window in the session's task list.
    NSApplicationActivationPolicy activationPolicy() const;
    /// All of its ordinary windows are hidden.
    bool isHidden() const;
    /// Minimises its ordinary windows; whether any was.
    bool hide() const;
    /// Brings the window of it that was last in front forward; whether the session took the
    /// request.
    bool activate() const;

private:
    friend class NSWorkspace;

    QString bundleIdentifier_;
    pid_t processIdentifier_;
    std::vector<Window> windows_; // bottom to top
};

/// The applications of this session. Main thread.
class NSWorkspace {
public:
    /// Those that have a window, in the order of their lowest ones. A process that runs several
    /// applications is listed once for each.
    static std::vector<NSRunningApplication> runningApplications();
};

} // namespace brimlow::platform
