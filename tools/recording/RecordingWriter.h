#pragma once

#include "platform/linux/evdev/Recording.h"

#include <string>

namespace brimlow::platform {

/// The head of a recording: N, I, P, B and A lines.
std::string writeDescription(const TrackpadDescription& description);

/// The text that readRecording() reads back as it was.
std::string writeRecording(const Recording& recording);

} // namespace brimlow::platform
