#include "ui/maps/LabelPlacing.h"

#include <algorithm>

namespace brimlow::maps {

namespace {

constexpr double usualDrop = 16;
constexpr double step = 2;
constexpr double gap = 1; // between neighbours
// A crowd beyond this covers itself wherever labels go; looking for room takes the cube of it.
constexpr std::size_t crowd = 200;

QRectF markerAt(const QPointF& centre) {
    return {centre - QPointF(markerReach, markerReach), 2 * QSizeF(markerReach, markerReach)};
}

QRectF below(const Labelled& each) {
    QRectF label({}, each.label);
    label.moveCenter(each.marker + QPointF(0, labelDrop(each.label.height())));
    return label;
}

double farthestSlide(const QRectF& label) {
    return label.width() / 2 + 6;
}

/// What is in the way of a label wherever it may slide to.
std::vector<QRectF> obstaclesOf(const std::vector<Labelled>& all, std::size_t own,
                                const std::vector<QRectF>& placed, const QRectF& label) {
    const double slide = farthestSlide(label);
    const QRectF reach = label.adjusted(-slide - gap, 0, slide + gap, 0);
    std::vector<QRectF> found;
    const auto consider = [&](const QRectF& obstacle) {
        if (obstacle.intersects(reach))
            found.push_back(obstacle);
    };
    for (std::size_t i = 0; i < all.size(); ++i)
        if (i != own)
            consider(markerAt(all[i].marker));
    for (const QRectF& other : placed)
        consider(other);
    return found;
}

double covered(const QRectF& label, const std::vector<QRectF>& obstacles) {
    double sum = 0;
    for (const QRectF& obstacle : obstacles) {
        const QRectF common = label.adjusted(-gap, 0, gap, 0) & obstacle;
        sum += common.width() * common.height();
    }
    return sum;
}

QRectF best(const QRectF& wanted, const std::vector<QRectF>& obstacles, const QRectF& bounds) {
    QRectF found = wanted;
    double least = covered(wanted, obstacles);
    for (double slide = step; least > 0 && slide <= farthestSlide(wanted); slide += step) {
        for (const double way : {slide, -slide}) {
            const QRectF candidate = wanted.translated(way, 0);
            if (candidate.left() < bounds.left() || candidate.right() > bounds.right())
                continue;
            const double cover = covered(candidate, obstacles);
            if (cover < least) {
                least = cover;
                found = candidate;
            }
        }
    }
    return found;
}

} // namespace

double labelDrop(double labelHeight) {
    return std::max(usualDrop, markerReach + labelHeight / 2);
}

std::vector<QRectF> placeLabels(const std::vector<Labelled>& all, const QRectF& bounds) {
    std::vector<QRectF> placed;
    placed.reserve(all.size());
    for (std::size_t i = 0; i < all.size(); ++i) {
        const QRectF wanted = below(all[i]);
        if (all.size() > crowd || wanted.isEmpty())
            placed.push_back(wanted);
        else
            placed.push_back(best(wanted, obstaclesOf(all, i, placed, wanted), bounds));
    }
    return placed;
}

} // namespace brimlow::maps
