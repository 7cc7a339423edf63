#include "ui/maps/SamplesCanvas.h"

#include "ui/maps/MapPainting.h"
#include "ui/style/ApplicationStyle.h"

#include <QPainter>

namespace brimlow::maps {

namespace {
constexpr double largestHeight = 200;
constexpr double areaOpacity = 0.12;
} // namespace

SamplesCanvas::SamplesCanvas(QWidget* parent) : MapCanvas(largestHeight, parent) {
    contentChanged();
}

void SamplesCanvas::setContent(Content content) {
    if (content == content_)
        return;
    content_ = std::move(content);
    contentChanged();
}

int SamplesCanvas::heightForWidth(int width) const {
    return static_cast<int>(heightFor(width, largestHeight, {}));
}

std::vector<Footprint> SamplesCanvas::footprints() const {
    const double reach = capturedReach();
    const QMarginsF mark(reach, reach, reach, reach);
    std::vector<Footprint> all;
    for (const TapSample& each : content_.samples)
        if (isDrawable(each))
            all.push_back({each, radius() > 0 ? radius() : 0, mark});
    if (content_.lastCaptured && isDrawable(*content_.lastCaptured))
        all.push_back({*content_.lastCaptured, 0, mark});
    return all;
}

void SamplesCanvas::paintStill(QPainter& painter) const {
    if (radius() > 0)
        for (const TapSample& each : content_.samples)
            if (isDrawable(each))
                paintArea(painter, areaOn(surface(), each, radius()), style::currentTheme().mapRed,
                          areaOpacity);
    int number = 0;
    for (const TapSample& each : content_.samples) {
        ++number;
        if (isDrawable(each))
            paintSample(painter, pointOn(surface(), each), number);
    }
    if (content_.lastCaptured && isDrawable(*content_.lastCaptured))
        paintCapturedRing(painter, pointOn(surface(), *content_.lastCaptured));
}

} // namespace brimlow::maps
