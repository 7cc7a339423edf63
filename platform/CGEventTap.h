#pragma once

#include "platform/CGEvent.h"
#include "platform/InputDevices.h"

#include <atomic>

namespace brimlow::platform {

enum CGEventType : std::uint32_t {
    kCGEventLeftMouseDown = 1,
    kCGEventTapDisabledByTimeout = 0xFFFFFFFE,   // here: the kernel dropped events
    kCGEventTapDisabledByUserInput = 0xFFFFFFFF, // here: a pointer device went away
};

enum CGEventTapPlacement : std::uint32_t { kCGHeadInsertEventTap = 0 };
enum CGEventTapOptions : std::uint32_t { kCGEventTapOptionDefault = 0 };

using CGEventMask = std::uint64_t;
constexpr CGEventMask CGEventMaskBit(CGEventType type) {
    return CGEventMask(1) << type;
}

/// Called on the input reader's thread. The event is for passing back, nothing more: button presses
/// are watched, never held up or changed.
using CGEventTapCallBack = CGEvent* (*)(CGEventType type, CGEvent* event, void* userInfo);

/// An event tap. Disabled by the system when presses may have been missed, until it is enabled
/// again.
struct CFMachPort {
    CGEventMask eventsOfInterest;
    CGEventTapCallBack callback;
    void* userInfo;
    std::atomic<bool> enabled = false;
};

/// While it lives, and once it was added, the port hears of presses. After its destructor has
/// returned no callback is under way. The port outlives it.
class CFRunLoopSource {
public:
    explicit CFRunLoopSource(CFMachPort& port) : port_(port) {}

private:
    friend void CFRunLoopAddSource(CFRunLoopSource& source);
    CFMachPort& port_;
    std::unique_ptr<ButtonListener> listener_;
};

/// Null where there is no input subsystem to watch. Main thread, like the rest.
std::unique_ptr<CFMachPort> CGEventTapCreate(CGEventTapLocation location,
                                             CGEventTapPlacement placement,
                                             CGEventTapOptions options,
                                             CGEventMask eventsOfInterest,
                                             CGEventTapCallBack callback, void* userInfo);
std::unique_ptr<CFRunLoopSource> CFMachPortCreateRunLoopSource(CFMachPort& port);
void CFRunLoopAddSource(CFRunLoopSource& source);
void CGEventTapEnable(CFMachPort& port, bool enable);

} // namespace brimlow::platform
