#pragma once

#include <QJsonValue>

#include <optional>
#include <vector>

namespace brimlow {

namespace json {
class Writer;
}

/// A recorded position: each axis runs from 0 to 1 over the trackpad, y upwards.
struct TapSample {
    double x = 0;
    double y = 0;

    bool operator==(const TapSample&) const = default;

    void write(json::Writer& writer) const;
    /// Both coordinates are required.
    static std::optional<TapSample> fromJson(const QJsonValue& value);
};

/// The plain distance, in the units of the axes: a trackpad's shape does not count.
double distance(const TapSample& a, const TapSample& b);

/// The mean position; of no samples, one that is not a number.
TapSample centreOf(const std::vector<TapSample>& samples);

} // namespace brimlow
