#pragma once

#include "profiles/TapPositionMapping.h"

namespace brimlow {

/// What a new profile begins with: the first `count` (0…10) of five spots down the left edge and
/// five down the right one, recorded now but without an action, with fresh ids.
std::vector<TapPositionMapping> buildDefaultLayout(int count);

} // namespace brimlow
