#include "ui/BrimlowApp.h"

#include "platform/InputDevices.h"
#include "platform/Platform.h"
#include "platform/SystemSettings.h"

#include <algorithm>

namespace brimlow {

namespace {

/// Whether there are trackpads and none can be read: then no tap ever brings the question up.
bool noTapCanAsk() {
    const auto trackpads = platform::Platform::current().inputDevices.trackpads();
    return !trackpads.empty()
           && std::ranges::none_of(trackpads, &QString::isEmpty, &platform::Trackpad::complaint);
}

} // namespace

BrimlowApp::BrimlowApp() = default;

void BrimlowApp::start() {
    appliedTapEnabled_ = settings_.tapEnabled();
    coordinator_.start();
    settingsChanges_ = settings_.observeWillChange([this] { settingsWillChange(); });
    if (noTapCanAsk())
        platform::Platform::current().systemSettings.prompt(platform::SettingsPane::accessibility);
}

void BrimlowApp::settingsWillChange() {
    platform::Platform::current().mainQueue.async(lifetime_.guard([this] {
        if (appliedTapEnabled_ == settings_.tapEnabled())
            return;
        appliedTapEnabled_ = settings_.tapEnabled();
        coordinator_.applyEnabledState();
    }));
}

} // namespace brimlow
