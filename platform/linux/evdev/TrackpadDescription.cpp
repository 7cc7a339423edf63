#include "platform/linux/evdev/TrackpadDescription.h"

#include <algorithm>

namespace brimlow::platform {

namespace {

constexpr PadSize usualSize{69, 50};
constexpr AxisRange noAxis{};

double length(const AxisRange& axis, double hint, double usual) {
    if (axis.resolution > 0 && axis.extent() > 0)
        return axis.extent() / axis.resolution;
    return hint > 0 ? hint : usual;
}

} // namespace

bool TrackpadDescription::hasSlots() const {
    return has(ABS_MT_SLOT) && has(ABS_MT_TRACKING_ID) && has(ABS_MT_POSITION_X)
           && has(ABS_MT_POSITION_Y) && !properties[INPUT_PROP_SEMI_MT];
}

std::int32_t TrackpadDescription::slotCount() const {
    if (!hasSlots())
        return 1;
    return std::clamp(axes[ABS_MT_SLOT]->maximum, 0, maximumSlots - 1) + 1;
}

const AxisRange& TrackpadDescription::xAxis() const {
    const auto& axis = axes[hasSlots() ? ABS_MT_POSITION_X : ABS_X];
    return axis ? *axis : noAxis;
}

const AxisRange& TrackpadDescription::yAxis() const {
    const auto& axis = axes[hasSlots() ? ABS_MT_POSITION_Y : ABS_Y];
    return axis ? *axis : noAxis;
}

PadSize TrackpadDescription::size() const {
    const PadSize hint = sizeHint.value_or(PadSize{});
    return {length(xAxis(), hint.width, usualSize.width),
            length(yAxis(), hint.height, usualSize.height)};
}

} // namespace brimlow::platform
