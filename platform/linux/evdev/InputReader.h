#pragma once

#include "platform/MultitouchSupport.h"
#include "platform/linux/evdev/InputEvents.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace brimlow::platform {

enum class SessionState {
    active,
    inactive, // another session is in front, or this one is locked
};

/// Reads the pointers of this machine, or plays a recording in their place, on a thread of its own.
/// Without devices and events that thread sleeps.
///
/// All members may be called on any thread but the reader's own; each returns when it has taken
/// effect, so that a handler that was taken away is not running any more. The first answers are
/// already about the devices that are plugged in.
class __attribute__((visibility("default"))) InputReader {
public:
    using FrameHandler = std::function<void(std::span<const MTFinger> fingers, double timestamp,
                                            std::int32_t frame)>;
    using ButtonHandler = std::function<void(ButtonEvent)>;
    using ListenerId = std::int32_t;

    /// The process' one reader: the contact frames and the click monitor, which are reached on
    /// different ways, must not open every device twice. Its source is what the environment
    /// variable BRIMLOW_TOUCH_DEVICE names. It lives as long as the process.
    static InputReader& shared();

    /// `touchDevice` is an event node, which then is the only touchpad, or a recording, which then
    /// is the only device at all; empty for whatever is plugged in. A recording that is malformed
    /// is reported on standard error, and there is no device.
    explicit InputReader(const std::string& touchDevice);
    ~InputReader();
    InputReader(const InputReader&) = delete;
    InputReader& operator=(const InputReader&) = delete;

    /// Whether there is an input subsystem, be it without a device, or a good recording.
    bool available() const;

    /// The handler runs on the reader's thread and must not block.
    void setFrameHandler(FrameHandler handler);
    /// A recording begins with the first start.
    void start();
    void stop();

    /// The handler runs on the reader's thread and must not block.
    ListenerId addButtonListener(ButtonHandler handler);
    void removeButtonListener(ListenerId id);

    /// All trackpads. Those that could not be opened are tried once more; while inactive none is
    /// tried, and the last answer stands.
    std::vector<TrackpadNode> trackpads();

    /// While inactive no device is open and nothing is delivered; a recording goes on unheard.
    /// Touches end with the change, and none that begins before it becomes a tap after it.
    /// Initially active.
    void setSessionState(SessionState state);

private:
    class Sources;
    std::unique_ptr<Sources> sources_;
};

} // namespace brimlow::platform
