// The framework's image: the one function of it that is looked up by name.

#include "platform/HIServices.h"

extern "C" AXError
_AXUIElementGetWindow(AXUIElementRef element, // NOLINT(bugprone-reserved-identifier)
                      std::uint32_t* number) {
    if (!element || !number || element->windowNumber == 0)
        return kAXErrorIllegalArgument;
    *number = element->windowNumber;
    return kAXErrorSuccess;
}
