#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

/// The records and entry points of the multitouch framework's image, which is opened at run time:
/// nothing here is linked against. Positions are normalised to 0…1 with y = 1 at the top edge.

struct MTPoint {
    float x = 0;
    float y = 0;
};

struct MTReadout {
    MTPoint pos;
    MTPoint vel;
};

/// One contact in one frame.
struct MTFinger {
    std::int32_t frame = 0;
    double timestamp = 0;        // seconds, of the device's clock
    std::int32_t identifier = 0; // one finger, from touch-down to lift-off
    std::int32_t state = 0;      // MTContactState
    std::int32_t foo3 = 0;
    std::int32_t foo4 = 0;
    MTReadout normalized;
    float size = 0; // about 0.1 a brush, 0.5 a tap, 1 and more a press
    std::int32_t zero1 = 0;
    float angle = 0;
    float majorAxis = 0; // mm
    float minorAxis = 0; // mm
    MTReadout mm;        // mm from the lower left corner
    std::int32_t zero2[2] = {0, 0};
    float unk2 = 0;
};

/// What our own image delivers; other images may use further values.
enum MTContactState : std::int32_t {
    MTContactHovering = 2,
    MTContactBegan = 3,
    MTContactTouching = 4,
    MTContactLifted = 7,
};

using MTDeviceRef = void*;

/// Called on the framework's own thread with an array that is valid only during the call; null and
/// 0 when nothing touches. The result is not used.
using MTContactFrameCallback = std::int32_t (*)(std::int32_t device, const MTFinger* fingers,
                                                std::int32_t count, double timestamp,
                                                std::int32_t frame);

using MTDeviceCreateDefaultFunction = MTDeviceRef (*)();
using MTRegisterContactFrameCallbackFunction = void (*)(MTDeviceRef, MTContactFrameCallback);
using MTDeviceStartFunction = void (*)(MTDeviceRef, std::int32_t mode);
/// Once it has returned no callback is under way.
using MTDeviceStopFunction = void (*)(MTDeviceRef);

static_assert(std::is_trivially_copyable_v<MTFinger> && std::is_standard_layout_v<MTFinger>);
static_assert(sizeof(MTPoint) == 8 && sizeof(MTReadout) == 16 && sizeof(MTFinger) == 96);
static_assert(offsetof(MTReadout, pos) == 0 && offsetof(MTReadout, vel) == 8);
static_assert(offsetof(MTFinger, frame) == 0);
static_assert(offsetof(MTFinger, timestamp) == 8);
static_assert(offsetof(MTFinger, identifier) == 16);
static_assert(offsetof(MTFinger, state) == 20);
static_assert(offsetof(MTFinger, foo3) == 24);
static_assert(offsetof(MTFinger, foo4) == 28);
static_assert(offsetof(MTFinger, normalized) == 32);
static_assert(offsetof(MTFinger, size) == 48);
static_assert(offsetof(MTFinger, zero1) == 52);
static_assert(offsetof(MTFinger, angle) == 56);
static_assert(offsetof(MTFinger, majorAxis) == 60);
static_assert(offsetof(MTFinger, minorAxis) == 64);
static_assert(offsetof(MTFinger, mm) == 68);
static_assert(offsetof(MTFinger, zero2) == 84);
static_assert(offsetof(MTFinger, unk2) == 92);
