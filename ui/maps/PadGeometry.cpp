#include "ui/maps/PadGeometry.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace brimlow::maps {

namespace {

constexpr double smallestHeight = 30;
constexpr double largestRadius = 8; // covers the trackpad from wherever something is drawn
constexpr double farthest = 3;      // positions beyond are out of sight just as well

QPointF normalised(const TapSample& position) {
    return {std::clamp(position.x, -farthest, farthest),
            1 - std::clamp(position.y, -farthest, farthest)};
}

QRectF bounded(const QRectF& area, const QRectF& surface) {
    const double beside = surface.width() / 2;
    const double above = surface.height() / 2;
    return area & surface.adjusted(-beside, -above, beside, above);
}

bool fits(const QSizeF& room, const QRectF& drawing) {
    return drawing.width() <= room.width() && drawing.height() <= room.height();
}

double heightIn(const QSizeF& room, double largestHeight,
                const std::vector<Footprint>& footprints) {
    // What is drawn grows with the trackpad, so the largest that fits can be searched by halving.
    double fitting = smallestHeight;
    double tooLarge = std::floor(largestHeight) + 1;
    while (tooLarge - fitting > 1) {
        const double middle = std::floor((fitting + tooLarge) / 2);
        (fits(room, wholeDrawing(middle, footprints)) ? fitting : tooLarge) = middle;
    }
    return fitting;
}

/// In the middle of `room` where `from` to `to`, around 0 to `length`, leaves it there.
double placed(double room, double length, double from, double to) {
    const double first = -from;
    const double last = room - to;
    if (first > last)
        return std::floor((first + last) / 2);
    return std::clamp(std::floor((room - length) / 2), std::ceil(first), std::floor(last));
}

} // namespace

bool isDrawable(const TapSample& position) {
    return std::isfinite(position.x) && std::isfinite(position.y);
}

QPointF pointOn(const QRectF& surface, const TapSample& position) {
    const QPointF share = normalised(position);
    return surface.topLeft() + QPointF(share.x() * surface.width(), share.y() * surface.height());
}

QRectF areaOn(const QRectF& surface, const TapSample& centre, double radius) {
    const double bound = std::min(radius, largestRadius);
    QRectF area({}, surface.size() * (2 * bound));
    area.moveCenter(pointOn(surface, centre));
    return area;
}

QRectF wholeDrawing(double height, const std::vector<Footprint>& footprints) {
    const QRectF surface(0, 0, height * aspect, height);
    QRectF whole = surface.adjusted(-edge, -edge, edge, edge);
    for (const Footprint& each : footprints) {
        const QPointF at = pointOn(surface, each.position);
        whole |= bounded(areaOn(surface, each.position, each.radius), surface)
                     .adjusted(-1, -1, 1, 1); // its outline
        if (bounded({at - QPointF(1, 1), QSizeF(2, 2)}, surface).isValid())
            whole |= QRectF(at, QSizeF(0, 0)).marginsAdded(each.mark);
    }
    return whole;
}

double heightFor(double width, double largestHeight, const std::vector<Footprint>& footprints) {
    const QSizeF room(width, std::numeric_limits<double>::max());
    return std::ceil(wholeDrawing(heightIn(room, largestHeight, footprints), footprints).height());
}

QRectF surfaceIn(QSizeF room, double largestHeight, const std::vector<Footprint>& footprints) {
    const double height = heightIn(room, largestHeight, footprints);
    const QRectF whole = wholeDrawing(height, footprints);
    const QSizeF size(height * aspect, height);
    return {{placed(room.width(), size.width(), whole.left(), whole.right()),
             placed(room.height(), size.height(), whole.top(), whole.bottom())},
            size};
}

} // namespace brimlow::maps
