#include "platform/linux/evdev/TouchDecoder.h"

#include <algorithm>

namespace brimlow::platform {

namespace {

/// 0 for keys that do not say how many fingers there are.
unsigned severalFingersBit(std::uint16_t code) {
    switch (code) {
    case BTN_TOOL_DOUBLETAP:
        return 1;
    case BTN_TOOL_TRIPLETAP:
        return 2;
    case BTN_TOOL_QUADTAP:
        return 4;
    case BTN_TOOL_QUINTTAP:
        return 8;
    default:
        return 0;
    }
}

bool looksAlike(const MTFinger& a, const MTFinger& b) {
    return a.normalized.pos.x == b.normalized.pos.x && a.normalized.pos.y == b.normalized.pos.y
           && a.size == b.size && a.majorAxis == b.majorAxis && a.minorAxis == b.minorAxis;
}

} // namespace

TouchDecoder::TouchDecoder(const TrackpadDescription& description, ContactIdentities& identities)
    : identities_(identities), scale_(description), multitouch_(description.hasSlots()),
      hasFingerTool_(description.keys[BTN_TOOL_FINGER]), slots_(description.slotCount()) {
    contacts_.reserve(maximumContacts());
}

bool TouchDecoder::feed(const input_event& event) {
    if (event.type == EV_SYN && event.code == SYN_DROPPED) {
        dropping_ = !resync_;
        return lose();
    }
    if (event.type == EV_SYN && event.code == SYN_REPORT) {
        const bool counts = dirty_ && !dropping_ && !resync_;
        dropping_ = false;
        return counts && commit();
    }
    if (dropping_)
        return false;
    if (event.type == EV_ABS)
        absolute(event.code, event.value);
    else if (event.type == EV_KEY && !multitouch_)
        key(event.code, event.value != 0);
    return false;
}

void TouchDecoder::absolute(std::uint16_t code, std::int32_t value) {
    if (code == ABS_MT_SLOT) {
        const bool known = value >= 0 && static_cast<std::size_t>(value) < slots_.size();
        currentSlot_ = known ? static_cast<std::size_t>(value) : slots_.size();
    } else if (code == ABS_PRESSURE) {
        padPressure_ = value;
        dirty_ = true;
    } else if (!multitouch_ && (code == ABS_X || code == ABS_Y)) {
        (code == ABS_X ? slots_[0].values.x : slots_[0].values.y) = value;
        dirty_ = true;
    } else if (multitouch_ && currentSlot_ < slots_.size()) {
        absoluteOfSlot(slots_[currentSlot_], code, value);
    }
}

void TouchDecoder::absoluteOfSlot(Slot& slot, std::uint16_t code, std::int32_t value) {
    switch (code) {
    case ABS_MT_TRACKING_ID:
        slot.renewed = slot.renewed || (value >= 0 && value != slot.trackingId);
        slot.trackingId = value;
        break;
    case ABS_MT_POSITION_X:
        slot.values.x = value;
        break;
    case ABS_MT_POSITION_Y:
        slot.values.y = value;
        break;
    case ABS_MT_PRESSURE:
        slot.values.pressure = value;
        break;
    case ABS_MT_TOUCH_MAJOR:
        slot.values.touchMajor = value;
        break;
    case ABS_MT_TOUCH_MINOR:
        slot.values.touchMinor = value;
        break;
    case ABS_MT_TOOL_TYPE:
        slot.toolType = value;
        break;
    case ABS_MT_DISTANCE:
        slot.distance = value;
        break;
    default:
        return;
    }
    dirty_ = true;
}

void TouchDecoder::key(std::uint16_t code, bool down) {
    if (code == BTN_TOUCH) {
        tools_.touch = down;
        // Its release was lost together with other events.
        if (down && slots_[0].phase == Phase::ignored)
            slots_[0].renewed = true;
    } else if (code == BTN_TOOL_FINGER) {
        tools_.finger = down;
    } else if (const unsigned bit = severalFingersBit(code)) {
        tools_.several = down ? tools_.several | bit : tools_.several & ~bit;
    } else {
        return;
    }
    dirty_ = true;
}

bool TouchDecoder::beginResync() {
    resync_ = true;
    dropping_ = false;
    return lose();
}

void TouchDecoder::endResync() {
    ignoreWhatTouches();
    resync_ = false;
}

bool TouchDecoder::lose() {
    const bool changed = std::any_of(slots_.begin(), slots_.end(), [](const Slot& slot) {
        return slot.phase == Phase::touching || slot.phase == Phase::hovering;
    });
    ignoreWhatTouches();
    contacts_.clear();
    return changed;
}

void TouchDecoder::ignoreWhatTouches() {
    if (!multitouch_)
        stageSingleContact();
    for (Slot& slot : slots_) {
        slot.renewed = false;
        slot.phase = slot.trackingId < 0 ? Phase::absent : Phase::ignored;
    }
    dirty_ = false;
}

/// Makes the keys look like a slot's events.
void TouchDecoder::stageSingleContact() {
    Slot& slot = slots_[0];
    if (tools_.several)
        tools_.wereSeveral = true;
    else if (!tools_.touch)
        tools_.wereSeveral = false;
    // With several fingers the position is none of theirs, and what is left when all but one have
    // lifted is no tap either.
    if (tools_.several || !(hasFingerTool_ ? tools_.finger : tools_.touch)) {
        slot.silent = slot.silent || tools_.several;
        slot.trackingId = -1;
        return;
    }
    slot.renewed = slot.renewed || slot.trackingId < 0;
    slot.trackingId = 0;
    slot.distance = tools_.touch ? 0 : 1;
}

bool TouchDecoder::pressureCounts() const {
    switch (scale_.pressureSource()) {
    case PressureSource::none:
        return false;
    case PressureSource::eachContact:
        return true;
    case PressureSource::wholePad:
        return std::count_if(slots_.begin(), slots_.end(),
                             [](const Slot& slot) { return slot.trackingId >= 0; })
               == 1;
    }
    return false;
}

bool TouchDecoder::commit() {
    dirty_ = false;
    contacts_.clear();
    if (!multitouch_)
        stageSingleContact();
    const bool counts = pressureCounts();
    bool changed = false;
    for (Slot& slot : slots_)
        changed |= commitSlot(slot, counts);
    return changed;
}

bool TouchDecoder::commitSlot(Slot& slot, bool pressureCounts) {
    bool changed = false;
    if (slot.renewed || slot.trackingId < 0)
        changed = end(slot);
    if (slot.renewed) {
        slot.renewed = false;
        slot.silent = tools_.wereSeveral;
        slot.finger.identifier = identities_.next();
    }
    if (slot.trackingId < 0)
        return changed;
    if (slot.toolType == MT_TOOL_PALM)
        return vanish(slot) || changed;
    if (slot.phase == Phase::ignored)
        return changed;
    const bool hovers = slot.distance > 0;
    if (hovers && slot.phase == Phase::touching)
        return end(slot); // and it hovers from the next frame on
    return list(slot, hovers ? Phase::hovering : Phase::touching, pressureCounts) || changed;
}

/// The contact is no more. A lift is told with the last values: those of the lifting frame itself
/// are the kernel's leftovers.
bool TouchDecoder::end(Slot& slot) {
    const bool wasListed = slot.phase == Phase::touching || slot.phase == Phase::hovering;
    if (slot.phase == Phase::touching && !slot.silent) {
        slot.finger.state = MTContactLifted;
        contacts_.push_back(slot.finger);
    }
    slot.phase = Phase::absent;
    slot.silent = false;
    return wasListed;
}

bool TouchDecoder::vanish(Slot& slot) {
    slot.silent = true;
    const bool wasListed = end(slot);
    slot.phase = Phase::ignored;
    return wasListed;
}

bool TouchDecoder::list(Slot& slot, Phase phase, bool pressureCounts) {
    if (scale_.pressureSource() == PressureSource::wholePad)
        slot.values.pressure = padPressure_;
    MTFinger measured = slot.finger;
    scale_.apply(slot.values, pressureCounts, measured);
    const bool changed = phase != slot.phase || !looksAlike(measured, slot.finger);
    const auto touchState = slot.phase == Phase::touching ? MTContactTouching : MTContactBegan;
    measured.state = phase == Phase::hovering ? MTContactHovering : touchState;
    slot.phase = phase;
    slot.finger = measured;
    contacts_.push_back(measured);
    return changed;
}

} // namespace brimlow::platform
