#include "actions/ActionExecutor.h"

#include "actions/CGEventHelper.h"
#include "platform/Accessibility.h"
#include "platform/CGEvent.h"
#include "platform/NSBundle.h"
#include "platform/NSWorkspace.h"
#include "platform/Platform.h"
#include "platform/Streams.h"

namespace brimlow {

using namespace Qt::StringLiterals;
using namespace platform;

QString ActionExecutor::execute(TapAction action, const std::optional<QString>& appName,
                                const std::optional<QString>& windowTitle,
                                std::optional<std::uint32_t> targetWindowID) {
    const bool trusted = AXIsProcessTrusted();
    printLine(u"ActionExecutor: AXIsProcessTrusted = "_s + (trusted ? u"true"_s : u"false"_s));
    if (!trusted) {
        AXIsProcessTrustedWithOptions(AXTrustedCheckOptionPrompt::yes);
        return u"⚠️ Accessibility NOT granted — prompted user"_s;
    }
    const QString application = appName.value_or(QString());
    switch (action) {
    case TapAction::none:
        return u"No action"_s;
    case TapAction::switchDesktopLeft:
        CGEventHelper::switchDesktop(CGEventHelper::Direction::left);
        return u"Switching left"_s;
    case TapAction::switchDesktopRight:
        CGEventHelper::switchDesktop(CGEventHelper::Direction::right);
        return u"Switching right"_s;
    case TapAction::closeWindow:
        executeCloseWindow();
        return u"Closing window"_s;
    case TapAction::openApp:
        return application.isEmpty() ? u"No app name specified"_s : executeOpenApp(application);
    case TapAction::focusWindow:
        return application.isEmpty()
                   ? u"No app specified"_s
                   : focusWindow(application, windowTitle.value_or(QString()), targetWindowID);
    case TapAction::hideAll:
        return executeHideAll();
    case TapAction::toggleBrimlow:
        return u"Toggle Brimlow (should be intercepted by AppCoordinator)"_s;
    case TapAction::customCommand:
        return u"Custom command (not implemented)"_s;
    }
    return {};
}

void ActionExecutor::executeCloseWindow() {
    constexpr CGKeyCode keyW = 13;
    const auto source = CGEventSourceCreate(kCGEventSourceStateHIDSystemState);
    const auto down = CGEventCreateKeyboardEvent(source.get(), keyW, true);
    const auto up = CGEventCreateKeyboardEvent(source.get(), keyW, false);
    if (!down || !up)
        return;
    CGEventSetFlags(*down, kCGEventFlagMaskCommand);
    CGEventSetFlags(*up, kCGEventFlagMaskCommand);
    CGEventPost(kCGSessionEventTap, *down);
    CGEventPost(kCGSessionEventTap, *up);
}

QString ActionExecutor::executeHideAll() {
    const QString ourselves = Platform::current().mainBundle.bundleIdentifier();
    int count = 0;
    for (const auto& application : NSWorkspace::runningApplications()) {
        if (application.activationPolicy() != NSApplicationActivationPolicy::regular
            || application.isHidden() || application.bundleIdentifier() == ourselves)
            continue;
        if (application.hide())
            ++count;
    }
    return u"Hid %1 app"_s.arg(count) + (count == 1 ? QString() : u"s"_s);
}

} // namespace brimlow
