#pragma once

#include <linux/input.h>

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace brimlow::platform {

/// One absolute axis as the kernel describes it.
struct AxisRange {
    std::int32_t minimum = 0;
    std::int32_t maximum = 0;
    std::int32_t resolution = 0; // units per mm; 0 when the driver does not know

    /// In units; 0 for an axis that cannot move.
    double extent() const { return static_cast<double>(maximum) - minimum; }
};

/// Millimetres.
struct PadSize {
    double width = 0;
    double height = 0;
};

/// What the kernel says about one pointer device: the same facts, whether they come from an open
/// node, a recording's head or a test.
struct TrackpadDescription {
    /// More fingers than any pad follows; slots from here on are ignored.
    static constexpr std::int32_t maximumSlots = 64;

    std::string name;
    std::uint16_t bus = 0;
    std::uint16_t vendor = 0;
    std::uint16_t product = 0;
    std::uint16_t version = 0;
    std::bitset<INPUT_PROP_CNT> properties; // INPUT_PROP_*
    std::bitset<KEY_CNT> keys;              // KEY_*, BTN_*
    std::bitset<REL_CNT> relatives;         // REL_*
    std::array<std::optional<AxisRange>, ABS_CNT> axes;
    std::optional<PadSize> sizeHint; // from udev, for pads whose driver knows no resolution

    bool has(unsigned axis) const { return axes[axis].has_value(); }

    /// Slots and positions in them that can be relied upon; a pad that only knows the bounding box
    /// of two fingers has none, and neither have those that send nameless contacts.
    bool hasSlots() const;

    /// 1…maximumSlots with slots, else 1.
    std::int32_t slotCount() const;

    const AxisRange& xAxis() const;
    const AxisRange& yAxis() const;

    /// The pad's surface: from the resolution, else the hint, else that of a usual laptop.
    PadSize size() const;
};

} // namespace brimlow::platform
