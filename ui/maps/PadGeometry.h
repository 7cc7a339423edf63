#pragma once

#include "profiles/TapSample.h"

#include <QMarginsF>
#include <QRectF>

#include <vector>

namespace brimlow::maps {

/// Width to height of the drawn trackpad.
constexpr double aspect = 1.6;

/// Room around the drawn trackpad in logical pixels: the ring of a finger on its edge is seen
/// whole.
constexpr double edge = 16;

/// Something drawn around a position, which may stick out of the drawn trackpad.
struct Footprint {
    TapSample position;
    double radius = 0;   // of its area, in trackpad units
    QMarginsF mark = {}; // logical pixels around the position, however large the drawing is
};

/// Whether there is a place for it at all: a file may hold any number.
bool isDrawable(const TapSample& position);

/// The trackpad's y runs upwards, the drawing's downwards.
QPointF pointOn(const QRectF& surface, const TapSample& position);

/// Where `radius` is reached around `centre`. An ellipse, because distances are measured in
/// trackpad units; bounded, so that whatever radius a file holds can be painted.
QRectF areaOn(const QRectF& surface, const TapSample& centre, double radius);

/// The trackpad, `height` high with its top left corner at the origin, with all that sticks out of
/// it. Of areas this is at most half the trackpad at each side.
QRectF wholeDrawing(double height, const std::vector<Footprint>& footprints);

/// How high all of it is where there is room for `width`.
double heightFor(double width, double largestHeight, const std::vector<Footprint>& footprints);

/// The largest trackpad, at most `largestHeight` high, that has room for all that sticks out of it;
/// in the middle where nothing is in the way.
QRectF surfaceIn(QSizeF room, double largestHeight, const std::vector<Footprint>& footprints);

} // namespace brimlow::maps
