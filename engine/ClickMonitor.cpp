// The coordinator's second, independent signal: real presses of the trackpad's button, or of any
// mouse's. A tap alone cannot tell a press from a touch.

#include "engine/AppCoordinator.h"
#include "platform/Clock.h"
#include "platform/MainQueue.h"
#include "platform/Platform.h"

namespace brimlow {

using namespace Qt::StringLiterals;
using namespace platform;

void AppCoordinator::startClickMonitor() {
    if (clickTap_)
        return;
    auto port =
        CGEventTapCreate(kCGSessionEventTap, kCGHeadInsertEventTap, kCGEventTapOptionDefault,
                         CGEventMaskBit(kCGEventLeftMouseDown), &clickTapCallback, this);
    if (!port) {
        log(u"WARN: CGEvent.tapCreate returned nil — click detection unavailable (require-click "
            u"bindings won't fire). Check Accessibility permission."_s);
        return;
    }
    clickTap_ = std::move(port);
    clickTapSource_ = CFMachPortCreateRunLoopSource(*clickTap_);
    CFRunLoopAddSource(*clickTapSource_);
    CGEventTapEnable(*clickTap_, true);
    log(u"click detection active (CGEventTap, session level)"_s);
}

/// Runs on the input reader's thread; the source is gone before the coordinator is.
CGEvent* AppCoordinator::clickTapCallback(CGEventType type, CGEvent* event, void* userInfo) {
    auto* self = static_cast<AppCoordinator*>(userInfo);
    if (!self)
        return event;
    auto& mainQueue = Platform::current().mainQueue;
    switch (type) {
    case kCGEventTapDisabledByTimeout:
    case kCGEventTapDisabledByUserInput:
        mainQueue.async(self->lifetime_.guard([self] {
            if (!self->clickTap_)
                return;
            CGEventTapEnable(*self->clickTap_, true);
            log(u"click tap re-enabled after system disable"_s);
        }));
        break;
    case kCGEventLeftMouseDown:
        // The time is taken here: the main thread may be busy.
        mainQueue.async(self->lifetime_.guard([self, now = Platform::current().clock.now()] {
            self->lastClickTime_ = now;
            log(u"CLICK detected (left-mouse-down)"_s);
        }));
        break;
    }
    return event;
}

} // namespace brimlow
