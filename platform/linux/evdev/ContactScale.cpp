#include "platform/linux/evdev/ContactScale.h"

#include <algorithm>
#include <array>
#include <string_view>

// Not yet in the kernel headers of every distribution.
#ifndef INPUT_PROP_PRESSUREPAD
#define INPUT_PROP_PRESSUREPAD 0x07
#endif

namespace brimlow::platform {

namespace {

// A finger's pressure begins at a tenth of the range; half of it and a little more is a palm.
constexpr double lowPressureShare = 0.10;
constexpr double palmShare = 0.51;

constexpr double largestSize = 1.5;
constexpr double unknownSize = 0.25;
constexpr double palmMillimetres = 15;              // a contact this wide has size 1
constexpr float unknownMajor = 7;                   // an ordinary fingertip
constexpr float majorOfHeavyContact = 16;           // as wide as a palm, no width being reported
constexpr std::int32_t largestArbitraryRange = 255; // up to here width units are no surface units

/// Pads whose numbers mean something else than their ranges suggest.
struct Quirk {
    std::string_view namePrefix;
    double lowPressure; // device units
    int widthSteps;     // the width is a count of sensor traces 0…n, scaled up; 0: it is not
};

// A light touch on these is 16 of 255, below a tenth of the range. They count the traces a finger
// covers, each about 5 mm wide and every one it so much as brushes: one ordinary finger reads 10 or
// 15 mm. One trace less is nearer to the truth.
constexpr std::array quirks{Quirk{"ETPS/2 ", 8, 15}};

const Quirk* quirkOf(const TrackpadDescription& description) {
    const auto* found = std::find_if(quirks.begin(), quirks.end(), [&](const Quirk& quirk) {
        return description.name.starts_with(quirk.namePrefix);
    });
    return found == quirks.end() ? nullptr : found;
}

bool measuresSize(const TrackpadDescription& description, unsigned axis) {
    return description.has(axis) && description.axes[axis]->resolution == 0
           && description.axes[axis]->extent() > 0
           && !description.properties[INPUT_PROP_PRESSUREPAD];
}

float clampedFloat(double value, double limit) {
    return static_cast<float>(std::clamp(value, 0.0, limit));
}

} // namespace

ContactScale::ContactScale(const TrackpadDescription& description)
    : x_(normalize(description.xAxis())), y_(normalize(description.yAxis())),
      padSize_(description.size()) {
    readPressure(description);
    readMajor(description);
}

ContactScale::Linear ContactScale::normalize(const AxisRange& axis) {
    if (axis.extent() <= 0)
        return {};
    return {1 / axis.extent(), -axis.minimum / axis.extent()};
}

void ContactScale::readPressure(const TrackpadDescription& description) {
    const bool perContact = description.hasSlots() && description.has(ABS_MT_PRESSURE);
    const unsigned axis = perContact ? ABS_MT_PRESSURE : ABS_PRESSURE;
    if (!measuresSize(description, axis))
        return;
    pressureSource_ = perContact ? PressureSource::eachContact : PressureSource::wholePad;
    const AxisRange& range = *description.axes[axis];
    const Quirk* quirk = quirkOf(description);
    const double usualLow = range.minimum + lowPressureShare * range.extent();
    const double low = quirk ? std::min(quirk->lowPressure, usualLow) : usualLow;
    palmPressure_ = range.minimum + palmShare * range.extent();
    const double factor = 0.9 / (palmPressure_ - low);
    sizeOfPressure_ = {factor, 0.1 - low * factor};
}

void ContactScale::readMajor(const TrackpadDescription& description) {
    if (!description.hasSlots() || !description.has(ABS_MT_TOUCH_MAJOR))
        return;
    const AxisRange& range = *description.axes[ABS_MT_TOUCH_MAJOR];
    if (range.extent() <= 0)
        return;
    hasMinor_ = description.has(ABS_MT_TOUCH_MINOR);
    if (range.resolution > 0)
        millimetres_ = {1.0 / range.resolution, 0};
    else if (range.extent() > largestArbitraryRange && description.xAxis().extent() > 0)
        millimetres_ = {padSize_.width / description.xAxis().extent(), 0};
    else
        millimetres_ = {palmMillimetres / (palmShare * range.extent()), 0};
    const Quirk* quirk = quirkOf(description);
    if (quirk && quirk->widthSteps > 0)
        millimetres_->offset = -millimetres_->factor * range.extent() / quirk->widthSteps;
}

void ContactScale::apply(const ContactValues& values, bool pressureCounts, MTFinger& finger) const {
    const float x = clampedFloat(x_(values.x), 1);
    const float y = clampedFloat(1 - y_(values.y), 1); // the kernel's y grows downwards
    finger.normalized.pos = {x, y};
    finger.mm.pos = {static_cast<float>(x * padSize_.width),
                     static_cast<float>(y * padSize_.height)};
    finger.majorAxis = major(values, pressureCounts);
    finger.minorAxis = hasMinor_
                           ? clampedFloat((*millimetres_)(values.touchMinor), finger.majorAxis)
                           : finger.majorAxis;
    finger.size = size(values, pressureCounts, finger.majorAxis);
}

float ContactScale::major(const ContactValues& values, bool pressureCounts) const {
    if (millimetres_)
        return clampedFloat((*millimetres_)(values.touchMajor), padSize_.width);
    const bool heavy = pressureCounts && values.pressure > palmPressure_;
    return heavy ? majorOfHeavyContact : unknownMajor;
}

float ContactScale::size(const ContactValues& values, bool pressureCounts, float majorAxis) const {
    if (pressureCounts)
        return clampedFloat(sizeOfPressure_(values.pressure), largestSize);
    if (millimetres_)
        return clampedFloat(majorAxis / palmMillimetres, largestSize);
    return static_cast<float>(unknownSize);
}

} // namespace brimlow::platform
