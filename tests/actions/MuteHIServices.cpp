// An image of HIServices whose elements tell no numbers.

#include "platform/HIServices.h"

extern "C" __attribute__((visibility("default"))) AXError
_AXUIElementGetWindow(AXUIElementRef, // NOLINT(bugprone-reserved-identifier)
                      std::uint32_t*) {
    return kAXErrorIllegalArgument;
}
