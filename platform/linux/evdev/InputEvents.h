#pragma once

#include <string>

namespace brimlow::platform {

/// What the pointers' buttons have to say.
enum class ButtonEvent {
    leftMouseDown, // any pointer's left button went down
    eventsLost,    // the kernel dropped events: presses may be missing
    devicesGone,   // a pointer went away
};

/// A trackpad that is there.
struct TrackpadNode {
    std::string name; // as the kernel calls it
    std::string node; // "/dev/input/event5", or the recording that stands in for one
    int error = 0;    // errno of opening it; 0 when it is open
};

} // namespace brimlow::platform
