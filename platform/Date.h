#pragma once

#include <compare>

namespace brimlow::platform {

/// A moment, in seconds since 1970-01-01 00:00:00 UTC.
struct Date {
    double secondsSince1970 = 0;

    /// Earlier than anything that can happen: the first day of the year 1.
    static constexpr Date distantPast() { return {-62135769600.0}; }

    auto operator<=>(const Date&) const = default;
};

/// Seconds between two moments.
constexpr double operator-(Date a, Date b) {
    return a.secondsSince1970 - b.secondsSince1970;
}

constexpr Date operator+(Date date, double seconds) {
    return {date.secondsSince1970 + seconds};
}

} // namespace brimlow::platform
