#pragma once

#include <QRectF>

#include <vector>

namespace brimlow::maps {

/// A marker and the size of the label that it wants; empty for none.
struct Labelled {
    QPointF marker;
    QSizeF label;
};

constexpr double markerRadius = 7;
/// From a marker's centre to the outside of its white ring.
constexpr double markerReach = 8;

/// From a marker's centre down to that of its label: 16 for usual text, and further where large
/// text would reach the marker.
double labelDrop(double labelHeight);

/// Where each label goes, in order: below its marker, unless that covers another marker or a label
/// placed before. Then it moves sideways, within `bounds`, to the nearest place that is free, or
/// else to where it covers least.
std::vector<QRectF> placeLabels(const std::vector<Labelled>& all, const QRectF& bounds);

} // namespace brimlow::maps
