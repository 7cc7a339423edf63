#include "ui/permissions/GrantActions.h"

#include "platform/Accessibility.h"
#include "platform/MainQueue.h"
#include "platform/NSAppleScript.h"
#include "platform/NSBundle.h"
#include "platform/NSTask.h"
#include "platform/Platform.h"
#include "platform/Streams.h"

namespace brimlow {

using namespace Qt::StringLiterals;
using namespace platform;

namespace {
constexpr double answerDelay = 0.5; // seconds
} // namespace

void promptForAccessibility() {
    AXIsProcessTrustedWithOptions(AXTrustedCheckOptionPrompt::yes);
}

void resetAndPromptForAutomation() {
    NSTask::run(u"/usr/bin/tccutil"_s, {u"reset"_s, u"AppleEvents"_s,
                                        Platform::current().mainBundle.identifierOfPermissions()});
    const auto script = NSAppleScript::initWithSource(consentSource);
    if (!script)
        return;
    NSAppleScriptError error;
    script->executeAndReturnError(error);
    if (!error.isEmpty())
        printErrorLine(u"Permissions.Automation request: "_s
                       + error.message().value_or(u"unknown error"_s));
}

void promptForScreenRecording(std::function<void(bool granted)> answered) {
    CGRequestScreenCaptureAccess();
    Platform::current().mainQueue.after(answerDelay, [answered = std::move(answered)] {
        answered(CGPreflightScreenCaptureAccess());
    });
}

} // namespace brimlow
