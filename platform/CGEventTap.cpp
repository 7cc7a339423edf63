#include "platform/CGEventTap.h"

#include "platform/Platform.h"

namespace brimlow::platform {

namespace {

void deliver(CFMachPort& port, ButtonNotice notice) {
    switch (notice) {
    case ButtonNotice::leftMouseDown:
        if (port.enabled && (port.eventsOfInterest & CGEventMaskBit(kCGEventLeftMouseDown)))
            port.callback(kCGEventLeftMouseDown, nullptr, port.userInfo);
        return;
    case ButtonNotice::eventsLost:
        port.enabled = false;
        port.callback(kCGEventTapDisabledByTimeout, nullptr, port.userInfo);
        return;
    case ButtonNotice::devicesGone:
        port.enabled = false;
        port.callback(kCGEventTapDisabledByUserInput, nullptr, port.userInfo);
        return;
    }
}

} // namespace

std::unique_ptr<CFMachPort> CGEventTapCreate(CGEventTapLocation, CGEventTapPlacement,
                                             CGEventTapOptions, CGEventMask eventsOfInterest,
                                             CGEventTapCallBack callback, void* userInfo) {
    if (!Platform::current().inputDevices.available())
        return nullptr;
    auto port = std::make_unique<CFMachPort>();
    port->eventsOfInterest = eventsOfInterest;
    port->callback = callback;
    port->userInfo = userInfo;
    return port;
}

std::unique_ptr<CFRunLoopSource> CFMachPortCreateRunLoopSource(CFMachPort& port) {
    return std::make_unique<CFRunLoopSource>(port);
}

void CFRunLoopAddSource(CFRunLoopSource& source) {
    source.listener_ = Platform::current().inputDevices.listen(
        [&port = source.port_](ButtonNotice notice) { deliver(port, notice); });
}

void CGEventTapEnable(CFMachPort& port, bool enable) {
    port.enabled = enable;
}

} // namespace brimlow::platform
