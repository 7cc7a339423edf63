#include "ui/maps/MapWords.h"

#include "platform/Format.h"

#include <algorithm>

namespace brimlow::maps {

using namespace Qt::StringLiterals;

namespace {

QString counted(std::size_t count, const QString& noun) {
    return QString::number(count) + u' ' + noun + (count == 1 ? QString() : u"s"_s);
}

} // namespace

QString bindingsInWords(const std::vector<TapPositionMapping>& bindings) {
    const auto recorded = std::count_if(bindings.begin(), bindings.end(),
                                        [](const auto& each) { return !each.samples.empty(); });
    return counted(bindings.size(), u"binding"_s) + u" · "_s + QString::number(recorded)
           + u" recorded"_s;
}

QString samplesInWords(std::size_t samples, std::optional<double> matchRadius) {
    const bool hasArea = samples > 0 && matchRadius.value_or(0) > 0;
    return counted(samples, u"sample"_s)
           + (hasArea ? u", match radius "_s + platform::fixed(*matchRadius, 3) : QString());
}

QString fingersInWords(std::size_t fingers) {
    return fingers == 0 ? QString()
                        : u", "_s + counted(fingers, u"finger"_s) + u" on the trackpad"_s;
}

} // namespace brimlow::maps
