#pragma once

#include "platform/linux/evdev/TrackpadDescription.h"

#include <linux/input.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace brimlow::platform {

/// A pad and what was done on it, as evemu-record prints it:
///
///     # comment
///     N: name
///     I: bus vendor product version          hexadecimal
///     P: bytes of INPUT_PROP bits            hexadecimal
///     B: type, bytes of that type's bits     hexadecimal
///     A: axis minimum maximum fuzz flat [resolution]
///     E: seconds.microseconds type code value
///
/// Types, codes and axes are hexadecimal, ranges and values decimal. L: and S: lines (lamps and
/// switches) are accepted and mean nothing here.
struct Recording {
    TrackpadDescription description;
    std::vector<input_event> events; // with the recording's own times, which never go backwards
};

/// Why a recording was refused.
struct RecordingError {
    std::string file;
    int line = 0; // from 1; 0 when it is the file itself
    std::string reason;

    /// "file:line: reason"
    std::string text() const;
};

template<typename Value>
using RecordingResult = std::variant<Value, RecordingError>;

/// Larger ones are refused unread.
constexpr std::uintmax_t largestRecording = 64U << 20; // bytes

RecordingResult<Recording> readRecording(const std::filesystem::path& path);

/// The same for text at hand; `file` only names it in the error.
RecordingResult<Recording> parseRecording(std::string_view text, std::string file);

/// A head without events.
RecordingResult<TrackpadDescription> parseDescription(std::string_view text, std::string file);

/// Seconds of an event's own clock.
inline double secondsOf(const input_event& event) {
    return static_cast<double>(event.input_event_sec)
           + static_cast<double>(event.input_event_usec) * 1e-6;
}

/// The same event at another time, in seconds from 0 on, to the microsecond.
input_event atSeconds(input_event event, double seconds);

} // namespace brimlow::platform
