#include "tools/recording/PadComposer.h"

#include "platform/linux/evdev/Recording.h"

#include <algorithm>
#include <cmath>

namespace brimlow::platform {

namespace {

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

} // namespace

std::vector<input_event> PadComposer::compose(double time, std::span<const PadFinger> fingers) {
    time_ = time;
    events_.clear();
    for (std::size_t slot = 0; slot < slots_.size(); ++slot)
        renew(slot, fingers);
    for (const PadFinger& finger : fingers) {
        if (!isDown(finger))
            place(finger);
    }
    for (std::size_t slot = 0; slot < slots_.size(); ++slot) {
        if (slots_[slot].finger)
            move(slot);
    }
    composeButton();
    composeSingleTouch();
    if (!events_.empty())
        emit(EV_SYN, SYN_REPORT, 0);
    return std::move(events_);
}

void PadComposer::renew(std::size_t slot, std::span<const PadFinger> fingers) {
    auto& finger = slots_[slot].finger;
    if (!finger)
        return;
    const auto now = std::ranges::find(fingers, finger->id, &PadFinger::id);
    if (now != fingers.end()) {
        finger = *now;
        return;
    }
    select(slot);
    emit(EV_ABS, ABS_MT_TRACKING_ID, -1);
    finger.reset();
}

bool PadComposer::isDown(const PadFinger& finger) const {
    return std::ranges::any_of(
        slots_, [&](const Slot& slot) { return slot.finger && slot.finger->id == finger.id; });
}

void PadComposer::place(const PadFinger& finger) {
    const auto slot = std::ranges::find_if(slots_, [](const Slot& each) { return !each.finger; });
    if (slot == slots_.end())
        return;
    slot->finger = finger;
    slot->trackingId = ++lastTrackingId_;
    select(static_cast<std::size_t>(slot - slots_.begin()));
    emit(EV_ABS, ABS_MT_TRACKING_ID, static_cast<std::int32_t>(slot->trackingId % 65536));
}

void PadComposer::move(std::size_t slot) {
    const PadFinger& finger = *slots_[slot].finger;
    const double x = finger.point.x + jitter * noise(noise_);
    const double y = finger.point.y + jitter * noise(noise_);
    send(slot, ABS_MT_POSITION_X, unitsAt(pad_.xAxis(), x));
    send(slot, ABS_MT_POSITION_Y, unitsAt(pad_.yAxis(), 1 - y));
    const auto& pressureAxis = pad_.axes[ABS_MT_PRESSURE];
    if (!pressureAxis)
        return;
    const double pressure = finger.pressure * (1 + pressureJitter * noise(noise_));
    send(slot, ABS_MT_PRESSURE, unitsAt(*pressureAxis, pressure));
}

void PadComposer::composeButton() {
    sendKey(BTN_LEFT, std::ranges::any_of(slots_, [](const Slot& slot) {
                return slot.finger && slot.finger->clicks;
            }));
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
