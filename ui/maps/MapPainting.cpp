#include "ui/maps/MapPainting.h"

#include "ui/maps/LabelPlacing.h"
#include "ui/style/ApplicationStyle.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace brimlow::maps {

using style::currentTheme;

namespace {

QColor faded(QColor colour, double opacity) {
    colour.setAlphaF(static_cast<float>(opacity));
    return colour;
}

/// About one logical pixel wide, and a whole number of the device's.
double hairline(const QPainter& painter) {
    const double ratio = painter.device()->devicePixelRatioF();
    return std::max(1.0, std::floor(ratio)) / ratio;
}

/// The edge between two device pixels next to `value`.
double snapped(const QPainter& painter, double value) {
    const double ratio = painter.device()->devicePixelRatioF();
    return std::round(value * ratio) / ratio;
}

/// The middle of a hairline inside of `rect`.
QRectF insideOf(const QPainter& painter, const QRectF& rect) {
    const double half = hairline(painter) / 2;
    return QRectF(QPointF(snapped(painter, rect.left()), snapped(painter, rect.top())),
                  QPointF(snapped(painter, rect.right()), snapped(painter, rect.bottom())))
        .adjusted(half, half, -half, -half);
}

void paintRing(QPainter& painter, const QPointF& centre, double radius, double width,
               const QColor& colour) {
    painter.setPen(QPen(colour, width));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(centre, radius, radius);
}

void paintDisc(QPainter& painter, const QPointF& centre, double radius, const QColor& colour) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawEllipse(centre, radius, radius);
}

QFont numberFont(int digits) {
    const auto& type = style::currentType();
    QFont font = type.font(style::TextStyle::mapLabel);
    // Two digits fit at the usual size.
    font.setPixelSize(std::max(1, digits > 2 ? type.scaled(16) / digits : type.scaled(8)));
    font.setWeight(QFont::Bold);
    return font;
}

double sampleRadius() {
    return style::currentType().scaled(12) / 2.0;
}

double capturedRadius() {
    return style::currentType().scaled(24) / 2.0;
}

} // namespace

void paintSurface(QPainter& painter, const QRectF& surface) {
    const QColor& grey = currentTheme().mapGrey;
    const double line = hairline(painter);
    const QRectF frame = insideOf(painter, surface);
    painter.setPen(Qt::NoPen);
    painter.setBrush(faded(grey, 0.18));
    painter.drawRoundedRect(surface, 12, 12);

    QPen dashes(faded(grey, 0.15), line);
    dashes.setCapStyle(Qt::FlatCap); // the usual one makes each dash longer by the line's width
    dashes.setDashPattern({3 / line, 4 / line});
    painter.setPen(dashes);
    const QPointF centre = frame.center();
    const QPointF inner = insideOf(painter, {centre, QSizeF(2, 2)}).topLeft();
    painter.drawLine(QPointF(inner.x(), surface.top()), QPointF(inner.x(), surface.bottom()));
    painter.drawLine(QPointF(surface.left(), inner.y()), QPointF(surface.right(), inner.y()));

    painter.setPen(QPen(faded(grey, 0.5), line));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(frame, 12 - line / 2, 12 - line / 2);
}

void paintArea(QPainter& painter, const QRectF& area, const QColor& colour, double opacity) {
    painter.setPen(QPen(faded(colour, 0.45), 1));
    painter.setBrush(faded(colour, opacity));
    painter.drawEllipse(area);
}

void paintMarker(QPainter& painter, const QPointF& centre, const QColor& colour, double ring) {
    const bool isLight = currentTheme().scheme == style::ColourScheme::light;
    paintRing(painter, centre, markerRadius + (ring + 1) / 2, 1,
              faded(Qt::black, isLight ? 0.28 : 0.5));
    paintDisc(painter, centre, markerRadius, colour);
    paintRing(painter, centre, markerRadius, ring, Qt::white);
}

void paintLabel(QPainter& painter, const QRectF& label, const QString& text, const QColor& colour) {
    const QRectF frame = insideOf(painter, label);
    painter.setPen(QPen(colour, hairline(painter)));
    painter.setBrush(faded(currentTheme().window, 0.85));
    painter.drawRoundedRect(frame, 3.5, 3.5);
    painter.setPen(currentTheme().text);
    painter.setFont(style::currentType().font(style::TextStyle::mapLabel));
    painter.drawText(label, Qt::AlignCenter | Qt::TextSingleLine | Qt::TextDontClip, text);
}

void paintSample(QPainter& painter, const QPointF& centre, int number) {
    const double radius = sampleRadius();
    paintDisc(painter, centre, radius, faded(currentTheme().sampleFill, 0.85));
    const QString digits = QString::number(number);
    painter.setPen(currentTheme().accentText);
    painter.setFont(numberFont(static_cast<int>(digits.size())));
    painter.drawText(QRectF(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius),
                     Qt::AlignCenter | Qt::TextDontClip, digits);
}

void paintCapturedRing(QPainter& painter, const QPointF& centre) {
    paintRing(painter, centre, capturedRadius(), 2, currentTheme().mapRed);
}

double capturedReach() {
    return capturedRadius() + 1;
}

void paintLiveTouch(QPainter& painter, const QPointF& centre) {
    const QColor& blue = currentTheme().blue;
    paintDisc(painter, centre, 14, faded(blue, 0.25));
    paintRing(painter, centre, 14, 3, blue);
}

} // namespace brimlow::maps
