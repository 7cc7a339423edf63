#include "actions/WindowElements.h"

namespace brimlow {

using namespace Qt::StringLiterals;
using namespace platform;

std::optional<std::vector<AXUIElement>> windowElementsOf(pid_t processIdentifier, AXError& error) {
    AXValue value;
    error = AXUIElementCopyAttributeValue(AXUIElementCreateApplication(processIdentifier),
                                          u"AXWindows"_s, value);
    auto* elements = std::get_if<std::vector<AXUIElement>>(&value);
    if (error != kAXErrorSuccess || !elements)
        return std::nullopt;
    return std::move(*elements);
}

void raiseWindow(const AXUIElement& window) {
    AXUIElementSetAttributeValue(window, u"AXMinimized"_s, false);
    AXUIElementSetAttributeValue(window, u"AXMain"_s, true);
    AXUIElementPerformAction(window, u"AXRaise"_s);
    AXUIElementSetAttributeValue(window, u"AXFocused"_s, true);
}

} // namespace brimlow
