#include "tools/recording/PadComposer.h"

#include "platform/linux/evdev/Recording.h"

#include <algorithm>
#include <cmath>

namespace brimlow::platform {

namespace {

constexpr double frameInterval = 0.008;
constexpr double jitter = 0.0008;       // of the pad, either way
constexpr double pressureJitter = 0.03; // of the pressure, either way

/// -1…1, always the same sequence.
double noise(std::uint32_t& state) {
    state = state * 1664525U + 1013904223U;
    return static_cast<double>(state >> 8U) / (1U << 23U) - 1;
}

std::int32_t unitsAt(const AxisRange& axis, double share) {
    const double units = std::clamp(share, 0.0, 1.0) * axis.extent();
    return axis.minimum + static_cast<std::int32_t>(std::lround(units));
}

/// How much of its height a touch's pressure has reached; a touch of few frames has one, too.
double ramp(double sinceBegin, double untilEnd) {
    constexpr double rise = 0.024;
    return std::clamp(std::min(sinceBegin, untilEnd) / rise, 0.45, 1.0);
}

} // namespace

std::vector<input_event> PadComposer::compose() {
    double last = 0;
    for (const ScriptedFinger& finger : fingers_)
        last = std::max(last, finger.end);
    const auto frames = static_cast<long>(std::ceil(last / frameInterval)) + 1;
    emit(EV_SYN, SYN_REPORT, 0);
    for (long frame = 0; frame <= frames; ++frame)
        composeFrame(static_cast<double>(frame) * frameInterval);
    return std::move(events_);
}

void PadComposer::composeFrame(double time) {
    time_ = time;
    const std::size_t before = events_.size();
    for (std::size_t slot = 0; slot < slots_.size(); ++slot)
        release(slot);
    for (const ScriptedFinger& finger : fingers_) {
        if (time >= finger.begin && time < finger.end && !isDown(finger))
            place(finger);
    }
    for (std::size_t slot = 0; slot < slots_.size(); ++slot) {
        if (slots_[slot].finger)
            move(slot);
    }
    composeButton();
    composeSingleTouch();
    if (events_.size() > before)
        emit(EV_SYN, SYN_REPORT, 0);
}

void PadComposer::release(std::size_t slot) {
    const ScriptedFinger* finger = slots_[slot].finger;
    if (!finger || time_ < finger->end)
        return;
    select(slot);
    emit(EV_ABS, ABS_MT_TRACKING_ID, -1);
    slots_[slot].finger = nullptr;
}

bool PadComposer::isDown(const ScriptedFinger& finger) const {
    return std::any_of(slots_.begin(), slots_.end(),
                       [&](const Slot& slot) { return slot.finger == &finger; });
}

void PadComposer::place(const ScriptedFinger& finger) {
    const auto slot =
        std::find_if(slots_.begin(), slots_.end(), [](const Slot& each) { return !each.finger; });
    if (slot == slots_.end())
        return;
    slot->finger = &finger;
    slot->trackingId = ++lastTrackingId_;
    select(static_cast<std::size_t>(slot - slots_.begin()));
    emit(EV_ABS, ABS_MT_TRACKING_ID, static_cast<std::int32_t>(slot->trackingId % 65536));
}

void PadComposer::move(std::size_t slot) {
    const ScriptedFinger& finger = *slots_[slot].finger;
    const double along = (time_ - finger.begin) / (finger.end - finger.begin);
    const double x = std::lerp(finger.from.x, finger.to.x, along) + jitter * noise(noise_);
    const double y = std::lerp(finger.from.y, finger.to.y, along) + jitter * noise(noise_);
    send(slot, ABS_MT_POSITION_X, unitsAt(pad_.xAxis(), x));
    send(slot, ABS_MT_POSITION_Y, unitsAt(pad_.yAxis(), 1 - y));
    const auto& pressureAxis = pad_.axes[ABS_MT_PRESSURE];
    if (!pressureAxis)
        return;
    const double pressure = finger.pressure * ramp(time_ - finger.begin, finger.end - time_)
                            * (1 + pressureJitter * noise(noise_));
    send(slot, ABS_MT_PRESSURE, unitsAt(*pressureAxis, pressure));
}

void PadComposer::composeButton() {
    const bool pressed = std::any_of(slots_.begin(), slots_.end(), [&](const Slot& slot) {
        if (!slot.finger || !slot.finger->clicks)
            return false;
        const double third = (slot.finger->end - slot.finger->begin) / 3;
        return time_ >= slot.finger->begin + third && time_ < slot.finger->end - third;
    });
    sendKey(BTN_LEFT, pressed);
}

/// The oldest contact as the one pointer, and how many there are.
void PadComposer::composeSingleTouch() {
    std::size_t count = 0;
    const Slot* oldest = nullptr;
    for (const Slot& slot : slots_) {
        if (!slot.finger)
            continue;
        ++count;
        if (!oldest || slot.trackingId < oldest->trackingId)
            oldest = &slot;
    }
    sendKey(BTN_TOUCH, count > 0);
    for (std::size_t fingers = 1; fingers <= fingerCountKeys.size(); ++fingers)
        sendKey(fingerCountKeys[fingers - 1], count == fingers);
    if (oldest) {
        sendPad(ABS_X, oldest->sent[ABS_MT_POSITION_X]);
        sendPad(ABS_Y, oldest->sent[ABS_MT_POSITION_Y]);
    }
    sendPad(ABS_PRESSURE, oldest ? oldest->sent[ABS_MT_PRESSURE] : 0);
}

void PadComposer::select(std::size_t slot) {
    if (currentSlot_ != slot)
        emit(EV_ABS, ABS_MT_SLOT, static_cast<std::int32_t>(slot));
    currentSlot_ = slot;
}

void PadComposer::send(std::size_t slot, std::uint16_t axis, std::int32_t value) {
    auto& sent = slots_[slot].sent[axis];
    if (sent == value)
        return;
    sent = value;
    select(slot);
    emit(EV_ABS, axis, value);
}

void PadComposer::sendPad(std::uint16_t axis, std::optional<std::int32_t> value) {
    if (!value || !pad_.has(axis) || padAxes_[axis] == *value)
        return;
    padAxes_[axis] = *value;
    emit(EV_ABS, axis, *value);
}

void PadComposer::sendKey(std::uint16_t key, bool down) {
    if (!pad_.keys[key] || keys_[key] == down)
        return;
    keys_[key] = down;
    emit(EV_KEY, key, down ? 1 : 0);
}

void PadComposer::emit(std::uint16_t type, std::uint16_t code, std::int32_t value) {
    input_event event{};
    event.type = type;
    event.code = code;
    event.value = value;
    events_.push_back(atSeconds(event, time_));
}

} // namespace brimlow::platform
