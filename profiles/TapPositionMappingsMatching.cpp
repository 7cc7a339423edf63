// Which binding a tap means. Acceptance and ranking use different measures: the nearest sample
// decides whether a binding is meant at all, the centre of its samples how well it fits.

#include "profiles/TapPositionMappings.h"

#include <algorithm>

namespace brimlow {

namespace {

bool accepts(const TapPositionMapping& binding, const TapSample& tap) {
    return !binding.samples.empty() && binding.nearestDistance(tap) <= binding.matchRadius();
}

} // namespace

std::optional<TapPositionMapping> TapPositionMappings::match(double x, double y) const {
    const TapProfile* profile = activeProfile();
    if (!profile)
        return std::nullopt;
    const TapSample tap{x, y};
    const TapPositionMapping* best = nullptr;
    double bestScore = 0;
    for (const TapPositionMapping& binding : profile->bindings) {
        if (!accepts(binding, tap))
            continue;
        const double score = distance(tap, centreOf(binding.samples));
        if (!best || score < bestScore) {
            best = &binding;
            bestScore = score;
        }
    }
    return best ? std::optional(*best) : std::nullopt;
}

bool TapPositionMappings::hasAnyRecorded() const {
    const TapProfile* profile = activeProfile();
    return profile && std::ranges::any_of(profile->bindings, [](const auto& each) {
               return !each.samples.empty();
           });
}

} // namespace brimlow
