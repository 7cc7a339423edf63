#pragma once

#include "platform/linux/evdev/TrackpadDescription.h"

#include <linux/input.h>

#include <array>
#include <bitset>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace brimlow::platform {

/// A place on a pad: 0…1 from the left and from the bottom.
struct PadPoint {
    double x = 0;
    double y = 0;
};

/// One finger that touches a pad, at one moment.
struct PadFinger {
    long id = 0; // the same for as long as it touches
    PadPoint point;
    double pressure = 0; // share of the range
    bool clicks = false; // pushes the pad down
};

/// The keys by which a pad says how many fingers touch it, from one finger on.
constexpr std::array<std::uint16_t, 5> fingerCountKeys{
    BTN_TOOL_FINGER, BTN_TOOL_DOUBLETAP, BTN_TOOL_TRIPLETAP, BTN_TOOL_QUADTAP, BTN_TOOL_QUINTTAP};

/// Plays the kernel: assigns slots, and sends only what changed since the last frame. Fingers
/// tremble a little, always in the same way. More of them than the pad has slots are left out.
class PadComposer {
public:
    /// `pad` outlives it.
    explicit PadComposer(const TrackpadDescription& pad) : pad_(pad), slots_(pad.slotCount()) {}

    /// The events of a frame in which these fingers touch, SYN_REPORT included; none where nothing
    /// changed. `time` is what the events carry, in seconds.
    std::vector<input_event> compose(double time, std::span<const PadFinger> fingers);

private:
    struct Slot {
        std::optional<PadFinger> finger;
        long trackingId = 0; // the oldest contact has the smallest
        std::array<std::optional<std::int32_t>, ABS_CNT> sent;
    };

    void renew(std::size_t slot, std::span<const PadFinger> fingers);
    bool isDown(const PadFinger& finger) const;
    void place(const PadFinger& finger);
    void move(std::size_t slot);
    void composeButton();
    void composeSingleTouch();

    void select(std::size_t slot);
    void send(std::size_t slot, std::uint16_t axis, std::int32_t value);
    void sendPad(std::uint16_t axis, std::optional<std::int32_t> value);
    void sendKey(std::uint16_t key, bool down);
    void emit(std::uint16_t type, std::uint16_t code, std::int32_t value);

    const TrackpadDescription& pad_;
    std::vector<Slot> slots_;
    std::vector<input_event> events_;
    std::bitset<KEY_CNT> keys_;
    std::array<std::int32_t, ABS_CNT> padAxes_{};
    std::size_t currentSlot_ = 0;
    long lastTrackingId_ = 0;
    double time_ = 0;
    std::uint32_t noise_ = 1;
};

} // namespace brimlow::platform
