#include "profiles/DefaultLayout.h"

#include "platform/Clock.h"
#include "platform/Platform.h"

#include <algorithm>
#include <array>

namespace brimlow {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<double, 5> heights{0.9, 0.7, 0.5, 0.3, 0.1}; // from the top down
constexpr double radius = 0.1; // a finger that aims at an edge lands about this near

TapPositionMapping binding(const QString& side, double x, std::size_t row) {
    return {
        .id = QUuid::createUuid(),
        .name = side + u' ' + QString::number(row + 1),
        .samples = {{x, heights[row]}},
        .lastRecordedAt = platform::Platform::current().clock.wallClock(),
        .explicitMatchRadius = radius,
    };
}

} // namespace

std::vector<TapPositionMapping> buildDefaultLayout(int count) {
    constexpr auto rows = static_cast<int>(heights.size());
    std::vector<TapPositionMapping> layout;
    for (int i = 0; i < std::min(count, 2 * rows); ++i) {
        const auto row = static_cast<std::size_t>(i % rows);
        layout.push_back(i < rows ? binding(u"Left"_s, 0.0, row) : binding(u"Right"_s, 1.0, row));
    }
    return layout;
}

} // namespace brimlow
