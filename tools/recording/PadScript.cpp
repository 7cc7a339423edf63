#include "tools/recording/PadScript.h"

namespace brimlow::platform {

namespace {

// Shares of the pressure range, as recorded pads show them.
constexpr double tapPressure = 0.27;
constexpr double clickPressure = 0.42;
constexpr double palmPressure = 0.75;

constexpr double fingerDistance = 0.16; // of the pad's width, between two fingers of one hand
constexpr double secondFingerLate = 0.008;

} // namespace

TrackpadDescription ordinaryTrackpad() {
    TrackpadDescription pad;
    pad.name = "Brimlow Ordinary Touchpad";
    pad.bus = BUS_I2C;
    pad.vendor = 0x1209;
    pad.product = 0x0001;
    pad.version = 0x0100;
    pad.properties.set(INPUT_PROP_POINTER).set(INPUT_PROP_BUTTONPAD);
    pad.keys.set(BTN_LEFT).set(BTN_TOUCH);
    for (const std::uint16_t key : fingerCountKeys)
        pad.keys.set(key);
    const AxisRange x{0, 3100, 31};
    const AxisRange y{0, 1922, 31};
    const AxisRange pressure{0, 255, 0};
    pad.axes[ABS_X] = pad.axes[ABS_MT_POSITION_X] = x;
    pad.axes[ABS_Y] = pad.axes[ABS_MT_POSITION_Y] = y;
    pad.axes[ABS_PRESSURE] = pad.axes[ABS_MT_PRESSURE] = pressure;
    pad.axes[ABS_MT_SLOT] = {0, 4, 0};
    pad.axes[ABS_MT_TRACKING_ID] = {0, 65535, 0};
    return pad;
}

PadScript::PadScript(TrackpadDescription pad) : pad_(std::move(pad)) {}

PadScript& PadScript::add(const ScriptedFinger& finger) {
    fingers_.push_back(finger);
    return *this;
}

PadScript& PadScript::tap(PadPoint point, double at, double duration) {
    return add({point, point, at, at + duration, tapPressure});
}

PadScript& PadScript::hold(PadPoint point, double at, double duration) {
    return add({point, point, at, at + duration, tapPressure});
}

PadScript& PadScript::drag(PadPoint from, PadPoint to, double at, double duration) {
    return add({from, to, at, at + duration, tapPressure});
}

PadScript& PadScript::scroll(PadPoint from, PadPoint to, double at, double duration) {
    const auto beside = [](PadPoint point) { return PadPoint{point.x + fingerDistance, point.y}; };
    drag(from, to, at, duration);
    return drag(beside(from), beside(to), at + secondFingerLate, duration);
}

PadScript& PadScript::palm(PadPoint point, double at, double duration) {
    return add({point, point, at, at + duration, palmPressure});
}

PadScript& PadScript::click(PadPoint point, double at, double duration) {
    return add({point, point, at, at + duration, clickPressure, true});
}

std::vector<input_event> PadScript::events() const {
    return PadComposer(pad_, fingers_).compose();
}

} // namespace brimlow::platform
