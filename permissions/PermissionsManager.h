#pragma once

#include "platform/MainQueue.h"
#include "platform/Observable.h"

#include <QString>

#include <memory>

namespace brimlow {

/// Knows which of the permissions that the actions need this process has, and asks for them. There
/// is no state for Automation: nothing answers whether it is granted. Main thread.
class PermissionsManager : public platform::ObservableObject {
public:
    static inline const QString grantAttemptsKey = QStringLiteral("permissions.grantAttempts.v1");

    platform::Published<bool> accessibilityGranted{*this};
    platform::Published<bool> screenRecordingGranted{*this};
    // In this run.
    platform::Published<bool> hasPromptedAccessibility{*this};
    platform::Published<bool> hasPromptedScreenRecording{*this};
    platform::Published<bool> hasPromptedAppleEvents{*this};

    /// Checks at once and then every 2.0 s; a repeat starts the interval anew.
    void startPolling();
    void stopPolling() { permissionCheckTimer_.reset(); }

    // Ask the system and assign the answer, changed or not; only a change is printed.
    void checkAccessibility();
    void checkScreenRecording();

    // Prompt once in a run; from then on the first two only check, and the third does nothing. The
    // third blocks until the script has run.
    void requestAccessibility();
    void requestScreenRecording();
    void requestAppleEvents();

    /// Notes that a Grant button was pressed.
    void recordGrantAttempt();
    /// Grant was pressed three times within the last ten minutes, and Accessibility is still off.
    bool hasStuckPermissionState() const;

    /// Forgets what the user has answered so far, so that they are asked anew; false when that
    /// failed. Blocks until the tool has run.
    bool resetAllTCCForSelf();

    /// Opens an address of the system's settings; any other is ignored.
    void open(const QString& address);
    void revealAppInFinder();

private:
    void check(const QString& name, platform::Published<bool>& granted, bool isGranted);

    std::unique_ptr<platform::RepeatingTimer> permissionCheckTimer_;
    platform::Lifetime lifetime_;
};

} // namespace brimlow
