#pragma once

#include "platform/MainQueue.h"
#include "platform/Observable.h"

#include <QString>

#include <memory>

namespace brimlow {

/// Knows which of the permissions that the actions need this process has. Main thread.
class PermissionsManager : public platform::ObservableObject {
public:
    platform::Published<bool> accessibilityGranted{*this};
    platform::Published<bool> screenRecordingGranted{*this};

    /// Checks at once and then every 2.0 s; a repeat starts the interval anew.
    void startPolling();

    // Ask the system and assign the answer, changed or not; only a change is printed.
    void checkAccessibility();
    void checkScreenRecording();

private:
    void check(const QString& name, platform::Published<bool>& granted, bool isGranted);

    std::unique_ptr<platform::RepeatingTimer> permissionCheckTimer_;
    platform::Lifetime lifetime_;
};

} // namespace brimlow
