#pragma once

#include "tools/demo/Demonstration.h"

namespace brimlow::desktop {

/// A line for each step: what the window manager said before and after, and whether it is what the
/// gesture was to do.
QString tableOf(const std::vector<DemoResult>& results);

} // namespace brimlow::desktop
