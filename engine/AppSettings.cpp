#include "engine/AppSettings.h"

#include "platform/NSUserDefaults.h"
#include "platform/Platform.h"

namespace brimlow {

using namespace Qt::StringLiterals;

namespace {

const QString tapEnabledKey = u"tapEnabled"_s;
const QString onboardingKey = u"hasCompletedOnboarding"_s;
const QString palmRejectionKey = u"palmRejection"_s;
const QString maxAxisKey = u"palmRejectionMaxAxis"_s;

platform::NSUserDefaults& store() {
    return platform::Platform::current().standardUserDefaults;
}

} // namespace

AppSettings::AppSettings()
    : storeWillChange_(store().observeWillChange([this] { willChange(); })) {}

bool AppSettings::tapEnabled() const {
    return store().boolForKey(tapEnabledKey).value_or(true);
}

void AppSettings::setTapEnabled(bool enabled) {
    store().setBool(enabled, tapEnabledKey);
}

bool AppSettings::hasCompletedOnboarding() const {
    return store().boolForKey(onboardingKey).value_or(false);
}

void AppSettings::setHasCompletedOnboarding(bool completed) {
    store().setBool(completed, onboardingKey);
}

bool AppSettings::palmRejection() const {
    return store().boolForKey(palmRejectionKey).value_or(true);
}

void AppSettings::setPalmRejection(bool enabled) {
    store().setBool(enabled, palmRejectionKey);
}

double AppSettings::palmRejectionMaxAxis() const {
    return store().doubleForKey(maxAxisKey).value_or(14.0);
}

void AppSettings::setPalmRejectionMaxAxis(double maxAxis) {
    store().setDouble(maxAxis, maxAxisKey);
}

} // namespace brimlow
