#include "platform/Accessibility.h"

#include "platform/InputDevices.h"
#include "platform/Platform.h"
#include "platform/Session.h"
#include "platform/Streams.h"

namespace brimlow::platform {

using namespace Qt::StringLiterals;

QStringList accessibilityProblems() {
    QStringList problems;
    for (const auto& trackpad : Platform::current().inputDevices.unreadableTrackpads()) {
        problems << u"The trackpad \"%1\" (%2) cannot be read: %3. Install 70-brimlow.rules into "
                    u"/etc/udev/rules.d, then log in again."_s.arg(trackpad.name, trackpad.node,
                                                                   trackpad.reason);
    }
    const auto abilities = Platform::current().session.abilities();
    if (!abilities.controlsWindows)
        problems << abilities.missing;
    return problems;
}

bool AXIsProcessTrusted() {
    return accessibilityProblems().isEmpty();
}

bool AXIsProcessTrustedWithOptions(AXTrustedCheckOptionPrompt prompt) {
    const QStringList problems = accessibilityProblems();
    if (prompt == AXTrustedCheckOptionPrompt::yes) {
        for (const auto& problem : problems)
            printErrorLine(u"Brimlow: "_s + problem);
    }
    return problems.isEmpty();
}

bool CGPreflightScreenCaptureAccess() {
    return Platform::current().session.abilities().readsTitles;
}

} // namespace brimlow::platform
