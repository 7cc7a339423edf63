#pragma once

#include <QColor>
#include <QRectF>

class QPainter;
class QString;

namespace brimlow::maps {

// The pieces that maps are made of; lengths are logical pixels.

/// The trackpad itself with its centre lines.
void paintSurface(QPainter& painter, const QRectF& surface);

/// Where taps count. Opacities are 0 to 1.
void paintArea(QPainter& painter, const QRectF& area, const QColor& colour, double opacity);

/// A dot in a white ring, 14 across without it; a hairline around the ring parts it from pale
/// surfaces.
void paintMarker(QPainter& painter, const QPointF& centre, const QColor& colour, double ring);

void paintLabel(QPainter& painter, const QRectF& label, const QString& text, const QColor& colour);

/// A recorded position, as the `number`th of its binding.
void paintSample(QPainter& painter, const QPointF& centre, int number);
void paintCapturedRing(QPainter& painter, const QPointF& centre);
/// From a sample's centre to the outside of the ring around it; grows with the desktop's text.
double capturedReach();

void paintLiveTouch(QPainter& painter, const QPointF& centre);

} // namespace brimlow::maps
