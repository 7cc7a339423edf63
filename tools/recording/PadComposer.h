#pragma once

#include "platform/linux/evdev/TrackpadDescription.h"

#include <linux/input.h>

#include <array>
#include <bitset>
#include <cstdint>
#include <optional>
#include <vector>

namespace brimlow::platform {

/// A place on a pad: 0…1 from the left and from the bottom.
struct PadPoint {
    double x = 0;
    double y = 0;
};

/// One finger from touch-down to lift-off, moving evenly. Seconds from the script's start.
struct ScriptedFinger {
    PadPoint from;
    PadPoint to;
    double begin = 0;
    double end = 0;
    double pressure = 0; // share of the range at its height
    bool clicks = false; // pushes the pad down for the middle third
};

/// The keys by which a pad says how many fingers touch it, from one finger on.
constexpr std::array<std::uint16_t, 5> fingerCountKeys{
    BTN_TOOL_FINGER, BTN_TOOL_DOUBLETAP, BTN_TOOL_TRIPLETAP, BTN_TOOL_QUADTAP, BTN_TOOL_QUINTTAP};

/// Plays the kernel: assigns slots, and sends only what changed since the last frame. Used once.
/// More fingers at once than the pad has slots are left out.
class PadComposer {
public:
    PadComposer(const TrackpadDescription& pad, const std::vector<ScriptedFinger>& fingers)
        : pad_(pad), fingers_(fingers), slots_(pad.slotCount()) {}

    std::vector<input_event> compose();

private:
    struct Slot {
        const ScriptedFinger* finger = nullptr;
        long trackingId = 0; // the oldest contact has the smallest
        std::array<std::optional<std::int32_t>, ABS_CNT> sent;
    };

    void composeFrame(double time);
    void release(std::size_t slot);
    bool isDown(const ScriptedFinger& finger) const;
    void place(const ScriptedFinger& finger);
    void move(std::size_t slot);
    void composeButton();
    void composeSingleTouch();

    void select(std::size_t slot);
    void send(std::size_t slot, std::uint16_t axis, std::int32_t value);
    void sendPad(std::uint16_t axis, std::optional<std::int32_t> value);
    void sendKey(std::uint16_t key, bool down);
    void emit(std::uint16_t type, std::uint16_t code, std::int32_t value);

    const TrackpadDescription& pad_;
    const std::vector<ScriptedFinger>& fingers_;
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
