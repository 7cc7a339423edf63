#include "tools/recording/PadScript.h"

#include <algorithm>
#include <cmath>

namespace brimlow::platform {

namespace {

constexpr double fingerDistance = 0.16; // of the pad's width, between two fingers of one hand
constexpr double secondFingerLate = 0.008;

/// How much of its height a touch's pressure has reached; a touch of few frames has one, too.
double ramp(double sinceBegin, double untilEnd) {
    constexpr double rise = 0.024;
    return std::clamp(std::min(sinceBegin, untilEnd) / rise, 0.45, 1.0);
}

PadFinger at(double time, const ScriptedFinger& finger) {
    const double duration = finger.end - finger.begin;
    const double along = (time - finger.begin) / duration;
    PadFinger now;
    now.point = {std::lerp(finger.from.x, finger.to.x, along),
                 std::lerp(finger.from.y, finger.to.y, along)};
    now.pressure = finger.pressure * ramp(time - finger.begin, finger.end - time);
    now.clicks =
        finger.clicks && time >= finger.begin + duration / 3 && time < finger.end - duration / 3;
    return now;
}

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

std::vector<PadFinger> PadScript::fingersAt(double time) const {
    std::vector<PadFinger> touching;
    for (std::size_t number = 0; number < fingers_.size(); ++number) {
        const ScriptedFinger& finger = fingers_[number];
        if (time < finger.begin || time >= finger.end)
            continue;
        touching.push_back(at(time, finger));
        touching.back().id = static_cast<long>(number);
    }
    return touching;
}

std::vector<input_event> PadScript::events() const {
    double last = 0;
    for (const ScriptedFinger& finger : fingers_)
        last = std::max(last, finger.end);
    const auto frames = static_cast<long>(std::ceil(last / frameInterval)) + 1;
    input_event empty{};
    empty.type = EV_SYN;
    std::vector<input_event> events{empty};
    PadComposer composer(pad_);
    for (long frame = 0; frame <= frames; ++frame) {
        const double time = static_cast<double>(frame) * frameInterval;
        const auto next = composer.compose(time, fingersAt(time));
        events.insert(events.end(), next.begin(), next.end());
    }
    return events;
}

} // namespace brimlow::platform
