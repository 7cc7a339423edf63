#include "ui/BrimlowApp.h"

#include "platform/Platform.h"

namespace brimlow {

BrimlowApp::BrimlowApp() = default;

void BrimlowApp::start() {
    appliedTapEnabled_ = settings_.tapEnabled();
    coordinator_.start();
    settingsChanges_ = settings_.observeWillChange([this] { settingsWillChange(); });
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
