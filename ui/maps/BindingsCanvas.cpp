#include "ui/maps/BindingsCanvas.h"

#include "ui/maps/BindingColor.h"
#include "ui/maps/LabelPlacing.h"
#include "ui/maps/MapPainting.h"

#include <QFontMetricsF>
#include <QHelpEvent>
#include <QLineF>
#include <QPainter>
#include <QTextDocument>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace brimlow::maps {

namespace {

constexpr double largestHeight = 240;
constexpr int widestLabel = 118;
constexpr double areaOpacity = 0.15;
constexpr double ringWidth = 2;

QMarginsF markOf(const QSizeF& label) {
    const double side = std::max(label.width() / 2, markerReach + 1);
    return {side, markerReach + 1, side, labelDrop(label.height()) + label.height() / 2};
}

bool isInside(const QRectF& ellipse, const QPointF& point) {
    const QPointF offset = point - ellipse.center();
    return std::hypot(offset.x() / ellipse.width(), offset.y() / ellipse.height()) <= 0.5;
}

} // namespace

BindingsCanvas::BindingsCanvas(QWidget* parent) : MapCanvas(largestHeight, parent) {
    contentChanged();
}

std::optional<BindingsCanvas::Spot> BindingsCanvas::spotOf(const TapPositionMapping& binding,
                                                           std::size_t position) {
    const TapSample centre = centreOf(binding.samples);
    if (binding.samples.empty() || !isDrawable(centre))
        return {};
    const double radius = binding.matchRadius();
    return Spot{.name = binding.name,
                .centre = centre,
                .radius = radius > 0 ? radius : 0,
                .position = position};
}

void BindingsCanvas::setBindings(const std::vector<TapPositionMapping>& bindings) {
    spots_.clear();
    for (std::size_t i = 0; i < bindings.size(); ++i)
        if (auto spot = spotOf(bindings[i], i))
            spots_.push_back(*std::move(spot));
    contentChanged();
}

int BindingsCanvas::heightForWidth(int width) const {
    const auto known = heights_.constFind(width);
    if (known != heights_.constEnd())
        return *known;
    return *heights_.insert(width, static_cast<int>(heightFor(width, largestHeight, footprints())));
}

std::vector<Footprint> BindingsCanvas::footprints() const {
    std::vector<Footprint> all;
    for (const Spot& each : spots_)
        all.push_back({each.centre, each.radius, markOf(each.labelSize)});
    return all;
}

void BindingsCanvas::measure() {
    heights_.clear();
    const auto& type = style::currentType();
    const QFontMetricsF metrics(type.font(style::TextStyle::mapLabel));
    constexpr double padding = 5;
    for (Spot& each : spots_) {
        each.label = metrics.elidedText(each.name.simplified(), Qt::ElideRight,
                                        type.scaled(widestLabel) - 2 * padding);
        each.labelSize = {std::ceil(metrics.horizontalAdvance(each.label) + 2 * padding),
                          std::ceil(metrics.height() + 4)};
        if (each.label.isEmpty())
            each.labelSize = {0, 0};
    }
}

void BindingsCanvas::arrange() {
    std::vector<Labelled> wanted;
    for (const Spot& each : spots_)
        wanted.push_back({pointOn(surface(), each.centre), each.labelSize});
    const auto placed = placeLabels(wanted, rect());
    for (std::size_t i = 0; i < spots_.size(); ++i)
        spots_[i].labelRect = placed[i];
}

void BindingsCanvas::paintStill(QPainter& painter) const {
    for (const Spot& each : spots_)
        paintArea(painter, areaOn(surface(), each.centre, each.radius),
                  BindingColor::at(each.position), areaOpacity);
    for (const Spot& each : spots_)
        if (!each.labelRect.isEmpty())
            paintLabel(painter, each.labelRect, each.label, BindingColor::at(each.position));
    for (const Spot& each : spots_)
        paintMarker(painter, pointOn(surface(), each.centre), BindingColor::at(each.position),
                    ringWidth);
}

const BindingsCanvas::Spot* BindingsCanvas::spotAt(const QPointF& point) const {
    const auto topmost = [this](const auto& isThere) {
        const auto found = std::find_if(spots_.rbegin(), spots_.rend(), isThere);
        return found == spots_.rend() ? nullptr : &*found;
    };
    const Spot* spot = topmost([&](const Spot& each) {
        return QLineF(point, pointOn(surface(), each.centre)).length() <= markerReach;
    });
    if (!spot)
        spot = topmost([&](const Spot& each) { return each.labelRect.contains(point); });
    if (!spot)
        spot = topmost([&](const Spot& each) {
            return isInside(areaOn(surface(), each.centre, each.radius), point);
        });
    return spot;
}

bool BindingsCanvas::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return MapCanvas::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const Spot* spot = spotAt(help->pos());
    // As rich text it wraps, and the name's own < and & stay as they are.
    QToolTip::showText(
        help->globalPos(),
        spot ? Qt::convertFromPlainText(spot->name, Qt::WhiteSpaceNormal) : QString(), this);
    return true;
}

} // namespace brimlow::maps
