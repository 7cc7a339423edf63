#pragma once

#include "platform/HIServices.h"

namespace brimlow {

/// The accessibility framework's function that tells a window element's number. Loaded at the first
/// call, once per process, and kept; null when it cannot be loaded, which is then said on standard
/// error. Any thread.
AXUIElementGetWindowFunction axGetWindow();

} // namespace brimlow
