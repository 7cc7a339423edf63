#include "platform/linux/evdev/Recording.h"

#include <cerrno>
#include <cmath>
#include <fstream>
#include <system_error>

namespace brimlow::platform {

std::string RecordingError::text() const {
    return file + ":" + std::to_string(line) + ": " + reason;
}

RecordingResult<Recording> readRecording(const std::filesystem::path& path) {
    const auto refuse = [&](std::string reason) {
        return RecordingError{path.string(), 0, std::move(reason)};
    };
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    if (error)
        return refuse("cannot be read: " + error.message());
    if (!std::filesystem::is_regular_file(status))
        return refuse("is not a file");
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (!error && size > largestRecording)
        return refuse("is larger than 64 MB");
    std::ifstream file(path, std::ios::binary);
    std::string text(error ? 0 : size, '\0');
    if (error || !file.read(text.data(), static_cast<std::streamsize>(size)))
        return refuse("cannot be read: " + std::generic_category().message(errno));
    return parseRecording(text, path.string());
}

input_event atSeconds(input_event event, double seconds) {
    const auto microseconds = std::llround(seconds * 1e6);
    event.input_event_sec = microseconds / 1'000'000;
    event.input_event_usec = microseconds % 1'000'000;
    return event;
}

} // namespace brimlow::platform
