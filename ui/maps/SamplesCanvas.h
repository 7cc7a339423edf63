#pragma once

#include "profiles/TapSample.h"
#include "ui/maps/MapCanvas.h"

#include <optional>

namespace brimlow::maps {

/// One binding's samples on the trackpad, numbered, with the area around each.
class SamplesCanvas : public MapCanvas {
public:
    struct Content {
        std::vector<TapSample> samples = {};
        std::optional<TapSample> lastCaptured = {}; // gets a ring
        std::optional<double> matchRadius = {};

        bool operator==(const Content&) const = default;
    };

    explicit SamplesCanvas(QWidget* parent = nullptr);

    const Content& content() const { return content_; }
    void setContent(Content content);

    /// The same whatever is shown: what is below the map must not move while the radius is dragged.
    int heightForWidth(int width) const override;

protected:
    std::vector<Footprint> footprints() const override;
    void paintStill(QPainter& painter) const override;

private:
    double radius() const { return content_.matchRadius.value_or(0); }

    Content content_;
};

} // namespace brimlow::maps
