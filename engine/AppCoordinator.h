#pragma once

#include "actions/ActionExecutor.h"
#include "engine/AppSettings.h"
#include "engine/MultitouchManager.h"
#include "permissions/PermissionsManager.h"
#include "platform/CGEventTap.h"
#include "platform/Observable.h"
#include "profiles/PositionRecorder.h"
#include "profiles/TapPositionMappings.h"

namespace brimlow {

/// The hub of the tap engine: decides, tap by tap, whether it is recorded, rejected, ignored or
/// turned into an action. Main thread.
class AppCoordinator : public platform::ObservableObject {
public:
    /// Both objects outlive the coordinator. The seed count is the number of default positions of a
    /// first run.
    AppCoordinator(AppSettings& settings, PermissionsManager& permissions, int defaultSeedCount);

    /// Brings the engine up. May run again; a repeat restarts the permission polling, says the
    /// enabled state once more and starts nothing twice.
    void start();

    /// To be called whenever settings.tapEnabled has changed. Touches keep flowing while detection
    /// is off, so that a tap can switch it on again.
    void applyEnabledState();

private:
    AppSettings& settings_;
    PermissionsManager& permissions_;
    ActionExecutor actionExecutor_;

public:
    TapPositionMappings positionMappings;
    PositionRecorder recorder;
    MultitouchManager trackpad;
    /// The last tap that was not too soon after another.
    platform::Published<std::optional<TapInfo>> lastTap{*this};

private:
    void handleTrackpadTap(const TapInfo& tap);
    bool rejectsPalm(const TapInfo& tap) const;
    std::optional<TapPositionMapping> matchedBinding(const TapInfo& tap) const;
    bool rejectsWhileOff(const TapPositionMapping& binding) const;
    bool rejectsWithoutClick(const TapPositionMapping& binding, platform::Instant now) const;
    void perform(const TapPositionMapping& binding);

    void startClickMonitor();
    static platform::CGEvent* clickTapCallback(platform::CGEventType type, platform::CGEvent* event,
                                               void* userInfo);

    static void log(const QString& message);

    platform::Instant lastHandledTapTime_ = platform::Instant::distantPast();
    platform::Instant lastClickTime_ = platform::Instant::distantPast();
    bool trackpadActive_ = false;
    platform::Subscription mappingsChanges_;
    platform::Lifetime lifetime_;
    // Last, so that no click comes in while the rest goes.
    std::unique_ptr<platform::CFMachPort> clickTap_;
    std::unique_ptr<platform::CFRunLoopSource> clickTapSource_;
};

} // namespace brimlow
