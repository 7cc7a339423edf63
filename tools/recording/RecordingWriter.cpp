#include "tools/recording/RecordingWriter.h"

#include <array>
#include <cstdarg>
#include <cstdio>

namespace brimlow::platform {

namespace {

__attribute__((format(printf, 1, 2))) std::string format(const char* pattern, ...) {
    std::array<char, 128> line{};
    va_list arguments;
    va_start(arguments, pattern);
    std::vsnprintf(line.data(), line.size(), pattern, arguments);
    va_end(arguments);
    return line.data();
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
            text += format(" %02x", value);
        }
        text += '\n';
    }
    return text;
}

} // namespace

std::string writeDescription(const TrackpadDescription& pad) {
    std::bitset<ABS_CNT> axes;
    std::string ranges;
    for (unsigned axis = 0; axis < ABS_CNT; ++axis) {
        const auto& range = pad.axes[axis];
        axes[axis] = range.has_value();
        if (range)
            ranges += format("A: %02x %d %d 0 0 %d\n", axis, range->minimum, range->maximum,
                             range->resolution);
    }
    std::bitset<EV_CNT> types;
    types[EV_SYN] = true;
    types[EV_KEY] = pad.keys.any();
    types[EV_REL] = pad.relatives.any();
    types[EV_ABS] = axes.any();
    return "# EVEMU 1.3\nN: " + pad.name + "\n"
           + format("I: %04x %04x %04x %04x\n", unsigned{pad.bus}, unsigned{pad.vendor},
                    unsigned{pad.product}, unsigned{pad.version})
           + bits("P:", pad.properties) + bits("B: 00", types) + bits("B: 01", pad.keys)
           + bits("B: 02", pad.relatives) + bits("B: 03", axes) + ranges;
}

std::string writeRecording(const Recording& recording) {
    std::string text = writeDescription(recording.description);
    for (const input_event& event : recording.events)
        text += format("E: %ld.%06ld %04x %04x %04d\n", static_cast<long>(event.input_event_sec),
                       static_cast<long>(event.input_event_usec), unsigned{event.type},
                       unsigned{event.code}, event.value);
    return text;
}

} // namespace brimlow::platform
