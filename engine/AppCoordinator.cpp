#include "engine/AppCoordinator.h"

#include "platform/Clock.h"
#include "platform/Format.h"
#include "platform/Platform.h"
#include "platform/Streams.h"

namespace brimlow {

using namespace Qt::StringLiterals;
using platform::fixed;
using platform::Instant;
using platform::Platform;

namespace {

constexpr double debounceInterval = 0.3; // seconds: fingers bounce, and two fingers lift together
constexpr double clickWindow = 0.5;      // seconds: a press comes before the finger lifts
constexpr double actionDelay = 0.05;     // seconds: lets the finger leave the pad first

} // namespace

AppCoordinator::AppCoordinator(AppSettings& settings, PermissionsManager& permissions,
                               int defaultSeedCount)
    : settings_(settings), permissions_(permissions),
      positionMappings(defaultSeedCount, Platform::current().standardUserDefaults),
      mappingsChanges_(positionMappings.observeWillChange([this] { willChange(); })) {}

void AppCoordinator::start() {
    trackpad.onTap = lifetime_.guard([this](const TapInfo& tap) { handleTrackpadTap(tap); });
    permissions_.startPolling();
    applyEnabledState();
    startClickMonitor();
}

void AppCoordinator::applyEnabledState() {
    if (!trackpadActive_) {
        trackpad.start();
        trackpadActive_ = true;
    }
    log(u"tap detection "_s + (settings_.tapEnabled() ? u"ENABLED"_s : u"DISABLED"_s));
}

void AppCoordinator::handleTrackpadTap(const TapInfo& tap) {
    const Instant now = Platform::current().clock.now();
    if (now - lastHandledTapTime_ < debounceInterval)
        return;
    lastHandledTapTime_ = now;
    lastTap = tap;
    log(u"TAP x="_s + fixed(tap.x, 4) + u" y="_s + fixed(tap.y, 4) + u" size="_s
        + fixed(tap.maxSize, 3) + u" major="_s + fixed(tap.maxMajorAxis, 2) + u" duration="_s
        + fixed(tap.duration, 3) + u's');

    if (recorder.isRecording || recorder.isCountingDown) {
        recorder.captureTap(tap.x, tap.y);
        return;
    }
    if (rejectsPalm(tap))
        return;
    const auto binding = matchedBinding(tap);
    if (!binding || rejectsWhileOff(*binding) || rejectsWithoutClick(*binding, now))
        return;
    Platform::current().mainQueue.after(
        actionDelay, lifetime_.guard([this, binding = *binding] { perform(binding); }));
}

bool AppCoordinator::rejectsPalm(const TapInfo& tap) const {
    const double limit = settings_.palmRejectionMaxAxis();
    if (!settings_.palmRejection() || !(tap.maxMajorAxis > limit))
        return false;
    log(u"REJECT (palm): major="_s + fixed(tap.maxMajorAxis, 2) + u" > "_s + fixed(limit, 2));
    return true;
}

std::optional<TapPositionMapping> AppCoordinator::matchedBinding(const TapInfo& tap) const {
    if (const TapProfile* profile = positionMappings.activeProfile()) {
        for (const auto& each : profile->bindings) {
            if (!each.samples.empty())
                log(u"  ▸ binding '"_s + each.name + u"': "_s + each.diagnose({tap.x, tap.y}));
        }
    }
    auto binding = positionMappings.match(tap.x, tap.y);
    if (!binding) {
        if (positionMappings.hasAnyRecorded())
            log(u"→ no binding matched — tap ignored"_s);
        return std::nullopt;
    }
    if (tap.maxSize < binding->minimumPressure) {
        log(u"matched '"_s + binding->name + u"' but pressure "_s + fixed(tap.maxSize, 3)
            + u" < required "_s + fixed(binding->minimumPressure, 3) + u" — ignored"_s);
        return std::nullopt;
    }
    if (binding->action == TapAction::none) {
        log(u"matched '"_s + binding->name + u"' but no action set"_s);
        return std::nullopt;
    }
    return binding;
}

bool AppCoordinator::rejectsWhileOff(const TapPositionMapping& binding) const {
    if (settings_.tapEnabled() || binding.action == TapAction::toggleBrimlow)
        return false;
    log(u"matched '"_s + binding.name
        + u"' but tap detection is OFF — only Toggle Brimlow fires while disabled"_s);
    return true;
}

bool AppCoordinator::rejectsWithoutClick(const TapPositionMapping& binding, Instant now) const {
    const double secondsSinceClick = now - lastClickTime_;
    if (!binding.requireClick || !(secondsSinceClick > clickWindow))
        return false;
    log(u"require-click '"_s + binding.name + u"': no click within "_s + fixed(clickWindow, 2)
        + u"s (last click "_s + fixed(secondsSinceClick, 2)
        + u"s ago) — that was a tap, not a click — ignored"_s);
    return true;
}

void AppCoordinator::perform(const TapPositionMapping& binding) {
    if (binding.action == TapAction::toggleBrimlow) {
        const bool enabled = !settings_.tapEnabled();
        settings_.setTapEnabled(enabled);
        log(u"matched '"_s + binding.name + u"' → Toggle Brimlow → tapEnabled="_s
            + (enabled ? u"true"_s : u"false"_s));
        return;
    }
    const QString result = actionExecutor_.execute(binding.action, binding.appName,
                                                   binding.windowTitle, binding.targetWindowID);
    log(u"matched '"_s + binding.name + u"' → "_s + displayName(binding.action) + u" → "_s
        + result);
}

void AppCoordinator::log(const QString& message) {
    platform::printErrorLine(u"AppCoordinator: "_s + message);
}

} // namespace brimlow
