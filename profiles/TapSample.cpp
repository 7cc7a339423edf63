#include "profiles/TapSample.h"

#include "profiles/JsonWriter.h"

#include <cmath>

namespace brimlow {

using namespace Qt::StringLiterals;

void TapSample::write(json::Writer& writer) const {
    writer.beginObject();
    writer.member("x", x);
    writer.member("y", y);
    writer.endObject();
}

std::optional<TapSample> TapSample::fromJson(const QJsonValue& value) {
    const auto x = json::number(value[u"x"_s]);
    const auto y = json::number(value[u"y"_s]);
    return x && y ? std::optional(TapSample{*x, *y}) : std::nullopt;
}

double distance(const TapSample& a, const TapSample& b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

TapSample centreOf(const std::vector<TapSample>& samples) {
    TapSample sum;
    for (const TapSample& sample : samples) {
        sum.x += sample.x;
        sum.y += sample.y;
    }
    const auto count = static_cast<double>(samples.size());
    return {sum.x / count, sum.y / count};
}

} // namespace brimlow
