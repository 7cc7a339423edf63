#include "profiles/TapSample.h"

#include "profiles/JsonValues.h"

#include <cmath>

namespace brimlow {

using namespace Qt::StringLiterals;

QJsonObject TapSample::toJson() const {
    return {{u"x"_s, x}, {u"y"_s, y}};
}

std::optional<TapSample> TapSample::fromJson(const QJsonValue& value) {
    const auto x = json::number(value[u"x"_s]);
    const auto y = json::number(value[u"y"_s]);
    return x && y ? std::optional(TapSample{*x, *y}) : std::nullopt;
}

double distance(const TapSample& a, const TapSample& b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

} // namespace brimlow
