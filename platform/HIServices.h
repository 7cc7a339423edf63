#pragma once

#include <sys/types.h>

#include <cstdint>

// What this program and the framework image HIServices agree on. Plain C.

extern "C" {

using AXError = std::int32_t;

constexpr AXError kAXErrorSuccess = 0;
constexpr AXError kAXErrorIllegalArgument = -25201;
constexpr AXError kAXErrorInvalidUIElement = -25202; // the process has gone
constexpr AXError kAXErrorCannotComplete = -25204;   // the session cannot be asked
constexpr AXError kAXErrorAttributeUnsupported = -25205;
constexpr AXError kAXErrorActionUnsupported = -25206;

/// A process, or one window of it.
struct AXUIElement {
    pid_t processIdentifier;
    std::uint32_t windowNumber; // 0 for the process itself
};

using AXUIElementRef = const AXUIElement*;

/// The image's function: the number of a window.
using AXUIElementGetWindowFunction = AXError (*)(AXUIElementRef element, std::uint32_t* number);
}
