#include "permissions/PermissionsManager.h"

#include "platform/Accessibility.h"
#include "platform/Clock.h"
#include "platform/NSAppleScript.h"
#include "platform/NSBundle.h"
#include "platform/NSTask.h"
#include "platform/NSUserDefaults.h"
#include "platform/NSWorkspace.h"
#include "platform/Platform.h"
#include "platform/Streams.h"

#include <QUrl>

#include <optional>
#include <vector>

namespace brimlow {

using namespace Qt::StringLiterals;
using namespace platform;

namespace {

// In seconds.
constexpr double pollingInterval = 2.0;
constexpr double recheckDelay = 0.5; // the answer may still be on its way
constexpr double attemptLifetime = 600;

constexpr std::size_t patience = 2; // attempts that are no reason for doubt

QString textOf(bool value) {
    return value ? u"true"_s : u"false"_s;
}

/// The presses in seconds since 1970, in the order in which they came; absent where there is no log
/// of them, or none that can be read.
std::optional<std::vector<double>> grantAttempts() {
    const auto log =
        Platform::current().standardUserDefaults.arrayForKey(PermissionsManager::grantAttemptsKey);
    if (!log)
        return std::nullopt;
    std::vector<double> attempts;
    for (const auto attempt : *log) {
        if (!attempt.isDouble())
            return std::nullopt;
        attempts.push_back(attempt.toDouble());
    }
    return attempts;
}

std::vector<double> recentOnes(std::optional<std::vector<double>> attempts) {
    const double oldest = Platform::current().clock.wallClock().secondsSince1970 - attemptLifetime;
    auto recent = std::move(attempts).value_or(std::vector<double>());
    std::erase_if(recent, [oldest](double attempt) { return attempt < oldest; });
    return recent;
}

} // namespace

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
        printLine(u"PermissionsManager: "_s + name + u" changed to "_s + textOf(isGranted));
    granted = isGranted;
}

void PermissionsManager::requestAccessibility() {
    if (hasPromptedAccessibility) {
        checkAccessibility();
        return;
    }
    const bool granted = AXIsProcessTrustedWithOptions(AXTrustedCheckOptionPrompt::yes);
    accessibilityGranted = granted;
    hasPromptedAccessibility = true;
    printLine(u"PermissionsManager: AXIsProcessTrustedWithOptions → "_s + textOf(granted));
}

void PermissionsManager::requestScreenRecording() {
    if (hasPromptedScreenRecording) {
        checkScreenRecording();
        return;
    }
    const bool granted = CGRequestScreenCaptureAccess();
    hasPromptedScreenRecording = true;
    printLine(u"PermissionsManager: CGRequestScreenCaptureAccess → "_s + textOf(granted));
    Platform::current().mainQueue.after(recheckDelay,
                                        lifetime_.guard([this] { checkScreenRecording(); }));
}

void PermissionsManager::requestAppleEvents() {
    if (hasPromptedAppleEvents)
        return;
    const auto script = NSAppleScript::initWithSource(consentSource);
    if (!script)
        return;
    NSAppleScriptError error;
    script->executeAndReturnError(error);
    hasPromptedAppleEvents = true;
    if (!error.isEmpty())
        printErrorLine(u"PermissionsManager: AppleEvents request: "_s
                       + error.message().value_or(u"unknown error"_s));
}

void PermissionsManager::recordGrantAttempt() {
    auto& platform = Platform::current();
    const auto log = grantAttempts();
    if (!log)
        platform.standardUserDefaults.keepDamagedValueForKey(grantAttemptsKey);
    QJsonArray recent;
    for (const double attempt : recentOnes(log))
        recent.append(attempt);
    recent.append(platform.clock.wallClock().secondsSince1970);
    platform.standardUserDefaults.setArray(recent, grantAttemptsKey);
}

bool PermissionsManager::hasStuckPermissionState() const {
    return !accessibilityGranted && recentOnes(grantAttempts()).size() > patience;
}

bool PermissionsManager::resetAllTCCForSelf() {
    const auto ending = NSTask::run(
        u"/usr/bin/tccutil"_s,
        {u"reset"_s, u"All"_s, Platform::current().mainBundle.identifierOfPermissions()});
    if (!ending.terminationStatus)
        printLine(u"PermissionsManager: tccutil failed: "_s + ending.error);
    if (ending.terminationStatus != 0)
        return false;
    Platform::current().standardUserDefaults.removeObjectForKey(grantAttemptsKey);
    hasPromptedAccessibility = false;
    hasPromptedScreenRecording = false;
    hasPromptedAppleEvents = false;
    return true;
}

void PermissionsManager::open(const QString& address) {
    if (QUrl(address, QUrl::StrictMode).isValid())
        NSWorkspace::openURL(address);
}

void PermissionsManager::revealAppInFinder() {
    NSWorkspace::activateFileViewerSelecting(Platform::current().mainBundle.bundlePath());
}

} // namespace brimlow
