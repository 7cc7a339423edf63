#pragma once

#include <cstdint>

namespace brimlow {

/// One detected tap. Positions are normalised to 0…1, y = 1 at the top edge.
struct TapInfo {
    double x = 0; // where it ended
    double y = 0;
    double duration = 0;     // seconds
    double maxSize = 0;      // largest contact size over its life
    double maxMajorAxis = 0; // largest major axis over its life, mm

    bool operator==(const TapInfo&) const = default;
};

/// One finger that is on the pad now.
struct LiveTouch {
    std::int32_t id = 0;
    double x = 0;
    double y = 0;

    bool operator==(const LiveTouch&) const = default;
};

} // namespace brimlow
