#include "platform/AXUIElement.h"

#include "platform/Platform.h"
#include "platform/Session.h"

#include <cerrno>
#include <csignal>

namespace brimlow::platform {

using namespace Qt::StringLiterals;

namespace {

Windows& sessionWindows() {
    return Platform::current().session.windows();
}

AXError copyWindows(pid_t processIdentifier, AXValue& value) {
    const auto windows = sessionWindows().list();
    if (!windows)
        return kAXErrorCannotComplete;
    std::vector<AXUIElement> elements;
    for (auto window = windows->rbegin(); window != windows->rend(); ++window)
        if (window->ownerPid == processIdentifier)
            elements.push_back({processIdentifier, window->number});
    if (elements.empty() && ::kill(processIdentifier, 0) != 0 && errno == ESRCH)
        return kAXErrorInvalidUIElement;
    value = std::move(elements);
    return kAXErrorSuccess;
}

AXError copyTitle(std::uint32_t number, AXValue& value) {
    auto window = sessionWindows().find(number);
    if (!window)
        return kAXErrorInvalidUIElement;
    value = std::move(window->title);
    return kAXErrorSuccess;
}

AXError errorOf(const Outcome& outcome) {
    return outcome ? kAXErrorSuccess : kAXErrorCannotComplete;
}

} // namespace

AXUIElement AXUIElementCreateApplication(pid_t processIdentifier) {
    return {processIdentifier, 0};
}

AXError AXUIElementCopyAttributeValue(const AXUIElement& element, const QString& attribute,
                                      AXValue& value) {
    if (element.windowNumber == 0 && attribute == "AXWindows"_L1)
        return copyWindows(element.processIdentifier, value);
    if (element.windowNumber != 0 && attribute == "AXTitle"_L1)
        return copyTitle(element.windowNumber, value);
    return kAXErrorAttributeUnsupported;
}

AXError AXUIElementSetAttributeValue(const AXUIElement& element, const QString& attribute,
                                     bool value) {
    if (element.windowNumber == 0)
        return kAXErrorAttributeUnsupported;
    if (attribute == "AXMinimized"_L1 && !value)
        return errorOf(sessionWindows().unhide(element.windowNumber));
    if (attribute == "AXFocused"_L1 && value)
        return errorOf(sessionWindows().activate(element.windowNumber));
    return attribute == "AXMain"_L1 && value ? kAXErrorSuccess : kAXErrorAttributeUnsupported;
}

AXError AXUIElementPerformAction(const AXUIElement& element, const QString& action) {
    if (element.windowNumber == 0 || action != "AXRaise"_L1)
        return kAXErrorActionUnsupported;
    return errorOf(sessionWindows().raise(element.windowNumber));
}

} // namespace brimlow::platform
