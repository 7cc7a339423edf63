#include "platform/Accessibility.h"

#include "platform/InputDevices.h"
#include "platform/Platform.h"
#include "platform/Session.h"
#include "platform/Streams.h"
#include "platform/SystemSettings.h"

namespace brimlow::platform {

using namespace Qt::StringLiterals;

namespace {

QString whatToDo(TrackpadRemedy remedy) {
    switch (remedy) {
    case TrackpadRemedy::none:
        break;
    case TrackpadRemedy::installRule:
        return u"Allow it in Brimlow's access window, or install 70-brimlow.rules into "
               u"/etc/udev/rules.d and restart."_s;
    case TrackpadRemedy::applyRule:
        return u"The rule that allows it is installed but not applied to it yet: plug it in "
               u"again, or restart."_s;
    case TrackpadRemedy::reconnect:
        return u"Plug it in again, or restart."_s;
    }
    return {};
}

} // namespace

QStringList accessibilityProblems() {
    QStringList problems;
    for (const Trackpad& trackpad : Platform::current().inputDevices.trackpads())
        if (!trackpad.complaint.isEmpty())
            problems << u"The trackpad \"%1\" (%2) cannot be read: %3. %4"_s.arg(
                trackpad.name, trackpad.node, trackpad.complaint, whatToDo(trackpad.remedy));
    if (const QString complaint = Platform::current().session.abilities().complaint();
        !complaint.isEmpty())
        problems << complaint;
    return problems;
}

bool AXIsProcessTrusted() {
    return accessibilityProblems().isEmpty();
}

bool AXIsProcessTrustedWithOptions(AXTrustedCheckOptionPrompt prompt) {
    const QStringList problems = accessibilityProblems();
    if (problems.isEmpty() || prompt == AXTrustedCheckOptionPrompt::no)
        return problems.isEmpty();
    for (const auto& problem : problems)
        printErrorLine(u"Brimlow: "_s + problem);
    Platform::current().systemSettings.prompt(SettingsPane::accessibility);
    return false;
}

bool CGPreflightScreenCaptureAccess() {
    return Platform::current().session.abilities().readsTitles.done;
}

bool CGRequestScreenCaptureAccess() {
    const auto abilities = Platform::current().session.abilities();
    if (abilities.readsTitles)
        return true;
    printErrorLine(u"Brimlow: The titles of windows cannot be read: %1. %2"_s.arg(
        abilities.readsTitles.reason, abilities.remedy));
    Platform::current().systemSettings.prompt(SettingsPane::screenRecording);
    return false;
}

} // namespace brimlow::platform
