#include "permissions/PermissionsManager.h"

#include "platform/Accessibility.h"
#include "platform/Platform.h"
#include "platform/Streams.h"

namespace brimlow {

using namespace Qt::StringLiterals;
using namespace platform;

namespace {
constexpr double pollingInterval = 2.0; // seconds
}

void PermissionsManager::startPolling() {
    permissionCheckTimer_.reset();
    checkAccessibility();
    checkScreenRecording();
    auto& mainQueue = Platform::current().mainQueue;
    permissionCheckTimer_ = mainQueue.every(pollingInterval, lifetime_.guard([this, &mainQueue] {
        mainQueue.async(lifetime_.guard([this] {
            checkAccessibility();
            checkScreenRecording();
        }));
    }));
}

void PermissionsManager::checkAccessibility() {
    check(u"Accessibility"_s, accessibilityGranted, AXIsProcessTrusted());
}

void PermissionsManager::checkScreenRecording() {
    check(u"Screen Recording"_s, screenRecordingGranted, CGPreflightScreenCaptureAccess());
}

void PermissionsManager::check(const QString& name, Published<bool>& granted, bool isGranted) {
    if (granted != isGranted)
        printLine(u"PermissionsManager: "_s + name + u" changed to "_s
                  + (isGranted ? u"true"_s : u"false"_s));
    granted = isGranted;
}

} // namespace brimlow
