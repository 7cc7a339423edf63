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
    struct Label {
        QString text; // the name, or as much of it as there is room for
        QSizeF size;
    };
    struct Spot {
        QString name;
        TapSample centre;
        double radius;
        std::size_t position; // in the profile
        Label label = {};
        QRectF labelRect = {};

        bool showsTheSameAs(const Spot& other) const {
            return name == other.name && centre == other.centre && radius == other.radius
                   && position == other.position;
        }
    };

    static std::optional<Spot> spotOf(const TapPositionMapping& binding, std::size_t position);
    /// What is seen there; null where only the trackpad is.
    const Spot* spotAt(const QPointF& point) const;

    void paintMarkers(QPainter& painter) const;

    std::vector<Spot> spots_;
    QHash<QString, Label> labels_;    // by name: measuring one takes longer than painting it
    mutable QHash<int, int> heights_; // by width: layouts ask for the same few again and again
};

} // namespace brimlow::maps
