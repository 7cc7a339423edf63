#include "profiles/TapPositionMapping.h"

#include "platform/Format.h"

#include <algorithm>
#include <limits>

namespace brimlow {

using namespace Qt::StringLiterals;
using platform::fixed;

namespace {

// In trackpad units: about 3 mm on a small trackpad, what a finger misses its spot by.
constexpr double smallestRadius = 0.03;
// Repeated taps on one spot scatter; the next may land somewhat outside of what was recorded.
constexpr double scatterAllowance = 1.5;

double meanPairDistance(const std::vector<TapSample>& samples) {
    double sum = 0;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        for (std::size_t j = i + 1; j < samples.size(); ++j)
            sum += distance(samples[i], samples[j]);
    }
    const auto count = static_cast<double>(samples.size());
    return sum / (count * (count - 1) / 2);
}

} // namespace

double TapPositionMapping::matchRadius() const {
    if (explicitMatchRadius)
        return *explicitMatchRadius * matchTolerance;
    if (samples.size() < 2)
        return matchTolerance * smallestRadius;
    // In this order: what is not a number stays so, and matches nothing.
    return std::max(meanPairDistance(samples) * scatterAllowance * matchTolerance, smallestRadius);
}

double TapPositionMapping::nearestDistance(const TapSample& position) const {
    double nearest = std::numeric_limits<double>::infinity();
    for (const TapSample& sample : samples)
        nearest = std::min(nearest, distance(sample, position));
    return nearest;
}

QString TapPositionMapping::diagnose(const TapSample& position) const {
    if (samples.empty())
        return u"(not recorded)"_s;
    const double nearest = nearestDistance(position);
    const double radius = matchRadius();
    return (nearest <= radius ? u"[MATCH]"_s : u"[REJECT]"_s) + u" nearest="_s + fixed(nearest, 4)
           + u" radius="_s + fixed(radius, 4) + u" (samples="_s + QString::number(samples.size())
           + u", tolerance="_s + fixed(matchTolerance, 1) + u')';
}

} // namespace brimlow
