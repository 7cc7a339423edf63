#pragma once

#include "engine/AppCoordinator.h"
#include "engine/AppSettings.h"
#include "permissions/PermissionsManager.h"

namespace brimlow {

/// The program on the current platform: its long-lived objects, made in this order and kept for the
/// life of the process. Main thread.
class BrimlowApp {
public:
    BrimlowApp();

    /// Brings the engine up; from then on a change of the switch is applied on the next turn. Where
    /// no trackpad can be read the user is asked for it now.
    void start();

    AppCoordinator& coordinator() { return coordinator_; }

private:
    void settingsWillChange();

    AppSettings settings_;
    PermissionsManager permissionsManager_;
    AppCoordinator coordinator_{settings_, permissionsManager_, 10};
    bool appliedTapEnabled_ = true;
    platform::Subscription settingsChanges_;
    platform::Lifetime lifetime_;
};

} // namespace brimlow
