#pragma once

#include "profiles/TapPositionMapping.h"
#include "ui/maps/MapCanvas.h"

#include <QHash>

namespace brimlow::maps {

/// All recorded bindings on the trackpad: around the middle of its samples the area of each, with
/// a marker and its name.
class BindingsCanvas : public MapCanvas {
public:
    explicit BindingsCanvas(QWidget* parent = nullptr);

    void setBindings(const std::vector<TapPositionMapping>& bindings);

    int heightForWidth(int width) const override;

protected:
    std::vector<Footprint> footprints() const override;
    void measure() override;
    void arrange() override;
    void paintStill(QPainter& painter) const override;
    bool event(QEvent* event) override;

private:
    struct Spot {
        QString name;
        TapSample centre;
        double radius;
        std::size_t position; // in the profile
        QString label = {};   // the name, or as much of it as there is room for
        QSizeF labelSize = {};
        QRectF labelRect = {};
    };

    static std::optional<Spot> spotOf(const TapPositionMapping& binding, std::size_t position);
    /// What is seen there; null where only the trackpad is.
    const Spot* spotAt(const QPointF& point) const;

    std::vector<Spot> spots_;
    mutable QHash<int, int> heights_; // by width: layouts ask for the same few again and again
};

} // namespace brimlow::maps
