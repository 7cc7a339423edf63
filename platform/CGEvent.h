#pragma once

#include "platform/Session.h"

#include <cstdint>
#include <memory>

namespace brimlow::platform {

/// Synthesised keyboard events. Main thread.

using CGKeyCode = std::uint16_t; // of the ANSI layout
using CGEventFlags = std::uint64_t;

constexpr CGEventFlags kCGEventFlagMaskCommand = 0x100000;

enum CGEventSourceStateID : std::int32_t { kCGEventSourceStateHIDSystemState = 1 };
enum CGEventTapLocation : std::uint32_t { kCGSessionEventTap = 1 };

struct CGEventSource {
    CGEventSourceStateID state;
};

struct CGEvent {
    KeyEvent key;
};

std::unique_ptr<CGEventSource> CGEventSourceCreate(CGEventSourceStateID state);
/// Null without a source.
std::unique_ptr<CGEvent> CGEventCreateKeyboardEvent(const CGEventSource* source, CGKeyCode keyCode,
                                                    bool keyDown);
/// Replaces all flags that the event carries.
void CGEventSetFlags(CGEvent& event, CGEventFlags flags);
/// What the session makes of it is not reported.
void CGEventPost(CGEventTapLocation location, const CGEvent& event);

} // namespace brimlow::platform
