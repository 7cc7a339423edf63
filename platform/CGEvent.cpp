#include "platform/CGEvent.h"

#include "platform/Platform.h"

namespace brimlow::platform {

std::unique_ptr<CGEventSource> CGEventSourceCreate(CGEventSourceStateID state) {
    return std::make_unique<CGEventSource>(CGEventSource{state});
}

std::unique_ptr<CGEvent> CGEventCreateKeyboardEvent(const CGEventSource* source, CGKeyCode keyCode,
                                                    bool keyDown) {
    if (!source)
        return nullptr;
    return std::make_unique<CGEvent>(CGEvent{{.keyCode = keyCode, .down = keyDown}});
}

void CGEventSetFlags(CGEvent& event, CGEventFlags flags) {
    event.key.flags = flags;
}

void CGEventPost(CGEventTapLocation, const CGEvent& event) {
    Platform::current().session.input().post(event.key);
}

} // namespace brimlow::platform
