#pragma once

#include "platform/linux/evdev/TouchDecoder.h"

#include <string>
#include <vector>

namespace brimlow::platform {

/// One of tests/devices.
TrackpadDescription deviceDescription(const std::string& name);

/// Kernel events as a line of words:
///   s slot, id tracking id, x y p M t d: that slot's position, pressure, major, tool type,
///   distance X Y P the pad's axes; T touch, F D one and two fingers, L left button: keys .
///   SYN_REPORT, ! SYN_DROPPED; each of the others is followed by its value: "s0 id7 x3000 ."
/// Times grow by 10 ms with each report.
std::vector<input_event> eventsOf(const std::string& text);

/// Feeds the words, in which [ and ] are beginResync() and endResync(), and writes down the frames:
/// "1:3+2:4" is a frame of contact 1 in state 3 and contact 2 in state 4, "-" one without any.
std::string framesOf(TouchDecoder& decoder, const std::string& text);

std::string textOf(std::span<const MTFinger> fingers);

} // namespace brimlow::platform
