#include "tools/recording/RecordingWriter.h"

#include <array>
#include <cstdio>

namespace brimlow::platform {

namespace {

std::string hex(unsigned value, int digits) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%0*x", digits, value);
    return text.data();
}

std::string decimal(long value, int digits) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%0*ld", digits, value);
    return text.data();
}

template<std::size_t size>
std::string bits(const std::string& prefix, const std::bitset<size>& set) {
    constexpr std::size_t bitsPerLine = 64;
    std::string text;
    for (std::size_t line = 0; line < size; line += bitsPerLine) {
        text += prefix;
        for (std::size_t byte = line; byte < line + bitsPerLine; byte += 8) {
            unsigned value = 0;
            for (std::size_t bit = byte; bit < byte + 8 && bit < size; ++bit)
                value |= set[bit] ? 1U << (bit - byte) : 0U;
            text += ' ' + hex(value, 2);
        }
        text += '\n';
    }
    return text;
}

} // namespace

std::string writeDescription(const TrackpadDescription& description) {
    std::bitset<ABS_CNT> axes;
    std::string ranges;
    for (unsigned axis = 0; axis < ABS_CNT; ++axis) {
        const auto& range = description.axes[axis];
        axes[axis] = range.has_value();
        if (range)
            ranges += "A: " + hex(axis, 2) + ' ' + std::to_string(range->minimum) + ' '
                      + std::to_string(range->maximum) + " 0 0 " + std::to_string(range->resolution)
                      + '\n';
    }
    std::bitset<EV_CNT> types;
    types[EV_SYN] = true;
    types[EV_KEY] = description.keys.any();
    types[EV_REL] = description.relatives.any();
    types[EV_ABS] = axes.any();
    return "# EVEMU 1.3\nN: " + description.name + "\nI: " + hex(description.bus, 4) + ' '
           + hex(description.vendor, 4) + ' ' + hex(description.product, 4) + ' '
           + hex(description.version, 4) + '\n' + bits("P:", description.properties)
           + bits("B: 00", types) + bits("B: 01", description.keys)
           + bits("B: 02", description.relatives) + bits("B: 03", axes) + ranges;
}

std::string writeRecording(const Recording& recording) {
    std::string text = writeDescription(recording.description);
    for (const input_event& event : recording.events)
        text += "E: " + std::to_string(event.input_event_sec) + '.'
                + decimal(event.input_event_usec, 6) + ' ' + hex(event.type, 4) + ' '
                + hex(event.code, 4) + ' ' + decimal(event.value, 4) + '\n';
    return text;
}

} // namespace brimlow::platform
