#pragma once

#include "platform/MultitouchSupport.h"
#include "platform/linux/evdev/TrackpadDescription.h"

#include <optional>

namespace brimlow::platform {

/// What the kernel last said of one contact, in the device's own units.
struct ContactValues {
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t pressure = 0;
    std::int32_t touchMajor = 0;
    std::int32_t touchMinor = 0;
};

/// Where the pressure that may be read as a contact's size comes from.
enum class PressureSource {
    none,        // not reported, or it is a force in grams and says nothing of the size
    eachContact, // ABS_MT_PRESSURE
    wholePad,    // ABS_PRESSURE: means something only while one finger is down
};

/// Turns one pad's units into positions of 0…1, sizes and millimetres.
class ContactScale {
public:
    explicit ContactScale(const TrackpadDescription& description);

    PressureSource pressureSource() const { return pressureSource_; }

    /// Fills in position, size and axes of `finger`. `pressureCounts` is false when `pressure` is
    /// not this contact's own.
    void apply(const ContactValues& values, bool pressureCounts, MTFinger& finger) const;

private:
    /// value × factor + offset
    struct Linear {
        double factor = 0;
        double offset = 0;
        double operator()(double value) const { return value * factor + offset; }
    };

    static Linear normalize(const AxisRange& axis);
    void readPressure(const TrackpadDescription& description);
    void readMajor(const TrackpadDescription& description);
    float major(const ContactValues& values, bool pressureCounts) const;
    float size(const ContactValues& values, bool pressureCounts, float majorAxis) const;

    Linear x_;
    Linear y_;
    PadSize padSize_;
    PressureSource pressureSource_ = PressureSource::none;
    Linear sizeOfPressure_;
    double palmPressure_ = 0;           // device units
    std::optional<Linear> millimetres_; // of a touch axis' units
    bool hasMinor_ = false;
};

} // namespace brimlow::platform
