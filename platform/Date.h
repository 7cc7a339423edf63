#pragma once

#include <compare>
#include <cstdint>

namespace brimlow::platform {

/// A date as it is stored, in seconds since 1970-01-01 00:00:00 UTC.
struct Date {
    double secondsSince1970 = 0;

    auto operator<=>(const Date&) const = default;
};

/// A moment to measure intervals from, in whole microseconds since 1970-01-01 00:00:00 UTC: whole,
/// so that an interval of exactly 0.3 s compares as exactly 0.3, which a double of today's
/// magnitude would not.
struct Instant {
    std::int64_t microseconds = 0;

    /// Earlier than anything that can happen: the first day of the year 1.
    static constexpr Instant distantPast() { return {-62135769600'000'000}; }

    auto operator<=>(const Instant&) const = default;
};

/// Seconds from `earlier` to `later`.
constexpr double operator-(Instant later, Instant earlier) {
    return static_cast<double>(later.microseconds - earlier.microseconds) / 1e6;
}

} // namespace brimlow::platform
