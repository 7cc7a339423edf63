#pragma once

#include <string>

namespace brimlow::platform {

/// What the pointers' buttons have to say.
enum class ButtonEvent {
    leftMouseDown, // any pointer's left button went down
    eventsLost,    // the kernel dropped events: presses may be missing
    devicesGone,   // a pointer went away
};

/// A trackpad that is there and cannot be opened.
struct UnreadableNode {
    std::string name;   // as the kernel calls it
    std::string node;   // "/dev/input/event5"
    std::string reason; // "Permission denied"
};

} // namespace brimlow::platform
