#pragma once

#include "engine/TapInfo.h"
#include "profiles/TapPositionMapping.h"

#include <QWidget>

#include <vector>

namespace brimlow {

namespace controls {
class Caption;
}
namespace maps {
class BindingsCanvas;
class MapCanvas;
} // namespace maps

/// Where a profile's bindings lie on the trackpad, in the colours of their rows, under a line that
/// counts them. Shows what it is given; setters repaint what changed, so they may be called at any
/// rate.
class TrackpadBindingsMap : public QWidget {
public:
    explicit TrackpadBindingsMap(const std::vector<TapPositionMapping>& bindings = {},
                                 const std::vector<LiveTouch>& liveTouches = {},
                                 QWidget* parent = nullptr);

    /// In the order of the profile, the unrecorded ones too: it decides the colours.
    void setBindings(const std::vector<TapPositionMapping>& bindings);
    void setLiveTouches(const std::vector<LiveTouch>& touches);

    maps::MapCanvas& canvas();

private:
    void describe();

    controls::Caption* count_;
    maps::BindingsCanvas* canvas_;
    std::vector<TapPositionMapping> bindings_;
    std::size_t fingers_ = 0;
};

} // namespace brimlow
