#include "ui/editor/EditorTexts.h"

#include "platform/Format.h"

#include <array>

namespace brimlow {

using namespace Qt::StringLiterals;
using platform::fixed;

QString pressureLabel(double minimumPressure) {
    struct Step {
        double below;
        QStringView label;
    };
    static constexpr std::array steps = {Step{0.05, u"any touch"}, Step{0.25, u"light"},
                                         Step{0.55, u"medium"}, Step{0.85, u"firm"}};
    for (const Step& step : steps)
        if (minimumPressure < step.below)
            return step.label.toString();
    return u"very firm"_s;
}

QString pressureReadout(double minimumPressure) {
    return fixed(minimumPressure, 2) + u"  ("_s + pressureLabel(minimumPressure) + u')';
}

QString matchRadiusReadout(double matchRadius) {
    return fixed(matchRadius, 3) + u"  (≈ "_s + fixed(matchRadius * 100, 0) + u"% of trackpad)"_s;
}

QString recordedText(const std::vector<TapSample>& samples) {
    return u"Recorded at x="_s + fixed(samples.front().x, 4) + u"  y="_s
           + fixed(samples.front().y, 4);
}

QString legacyText(const std::vector<TapSample>& samples) {
    return samples.size() < 2
               ? QString()
               : u"Legacy: %1 samples stored (older multi-sample binding). Re-record below to "
                 u"clean up to a single position."_s.arg(samples.size());
}

QString countdownText(int seconds) {
    return u"Recording starts in %1 second%2…"_s.arg(seconds).arg(seconds == 1 ? QString()
                                                                               : u"s"_s);
}

QString clickText(bool requireClick) {
    return requireClick
               ? u"ON — fires only when you physically click the trackpad, not on a light tap. "
                 u"Click and tap are separate events; this waits for the real click."_s
               : u"OFF — a light tap on the spot is enough. More sensitive, easier to trigger "
                 u"accidentally. Use the pressure slider below to filter out very light "
                 u"brushes."_s;
}

QString clickWarning(TapAction action, bool requireClick) {
    return action == TapAction::toggleBrimlow && !requireClick
               ? u"Heads up: with click off, a stray tap on this spot can disable tap detection. "
                 u"Tapping the same spot again re-enables it — even while detection is off, "
                 u"Toggle Brimlow stays live."_s
               : QString();
}

} // namespace brimlow
