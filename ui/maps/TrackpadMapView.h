#pragma once

#include "engine/TapInfo.h"
#include "profiles/TapSample.h"

#include <QWidget>

#include <optional>
#include <vector>

namespace brimlow {

namespace controls {
class Caption;
}
namespace maps {
class MapCanvas;
class SamplesCanvas;
} // namespace maps

/// Where one binding's samples lie on the trackpad while it is edited, and the fingers that are on
/// it now. Shows what it is given; setters repaint what changed, so they may be called at any rate.
class TrackpadMapView : public QWidget {
public:
    explicit TrackpadMapView(const std::vector<TapSample>& samples = {},
                             const std::vector<LiveTouch>& liveTouches = {},
                             std::optional<TapSample> lastCaptured = {},
                             std::optional<double> matchRadius = {},
                             const std::optional<QString>& title = {}, QWidget* parent = nullptr);

    void setSamples(const std::vector<TapSample>& samples);
    void setLiveTouches(const std::vector<LiveTouch>& touches);
    /// Gets a ring.
    void setLastCaptured(std::optional<TapSample> sample);
    /// In trackpad units.
    void setMatchRadius(std::optional<double> radius);
    void setTitle(const std::optional<QString>& title);

    maps::MapCanvas& canvas();

private:
    void describe();

    controls::Caption* title_;
    maps::SamplesCanvas* canvas_;
    std::size_t fingers_ = 0;
};

} // namespace brimlow
