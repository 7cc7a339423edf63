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
#include <map>

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
    std::vector<Spot> spots;
    for (std::size_t i = 0; i < bindings.size(); ++i)
        if (auto spot = spotOf(bindings[i], i))
            spots.push_back(*std::move(spot));
    if (std::ranges::equal(spots, spots_, &Spot::showsTheSameAs))
        return;
    spots_ = std::move(spots);
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
        all.push_back({each.centre, each.radius, markOf(each.label.size)});
    return all;
}

void BindingsCanvas::measure() {
    heights_.clear();
    const auto& type = style::currentType();
    const QFontMetricsF metrics(type.font(style::TextStyle::mapLabel));
    constexpr double padding = 5;
    QHash<QString, Label> labels;
    for (Spot& each : spots_) {
        each.label = labels_.value(each.name);
        if (each.label.text.isNull()) {
            each.label.text = metrics.elidedText(each.name.simplified(), Qt::ElideRight,
                                                 type.scaled(widestLabel) - 2 * padding);
            each.label.size = {std::ceil(metrics.horizontalAdvance(each.label.text) + 2 * padding),
                               std::ceil(metrics.height() + 4)};
            if (each.label.text.isEmpty())
                each.label.size = {0, 0};
        }
        labels[each.name] = each.label;
    }
    labels_ = std::move(labels);
}

void BindingsCanvas::arrange() {
    std::vector<Labelled> wanted;
    for (const Spot& each : spots_)
        wanted.push_back({pointOn(surface(), each.centre), each.label.size});
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
            paintLabel(painter, each.labelRect, each.label.text, BindingColor::at(each.position));
    paintMarkers(painter);
}

/// Each colour's is painted once.
void BindingsCanvas::paintMarkers(QPainter& painter) const {
    constexpr int reach = static_cast<int>(markerReach) + 2;
    const double ratio = painter.device()->devicePixelRatioF();
    std::map<QRgb, QPixmap> markers;
    for (const Spot& each : spots_) {
        const QColor colour = BindingColor::at(each.position);
        QPixmap& marker = markers[colour.rgb()];
        if (marker.isNull()) {
            marker = QPixmap((QSizeF(2 * reach, 2 * reach) * ratio).toSize());
            marker.setDevicePixelRatio(ratio);
            marker.fill(Qt::transparent);
            QPainter inside(&marker);
            inside.setRenderHint(QPainter::Antialiasing);
            paintMarker(inside, {reach, reach}, colour, ringWidth);
        }
        painter.drawPixmap(pointOn(surface(), each.centre) - QPointF(reach, reach), marker);
    }
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
    if (event->type() == QEvent::StyleChange)
        labels_.clear(); // the text has another size
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
