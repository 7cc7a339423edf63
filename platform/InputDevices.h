#pragma once

#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace brimlow::platform {

/// A trackpad that exists but cannot be opened by this process.
struct UnreadableTrackpad {
    QString name;   // as the kernel calls it
    QString node;   // "/dev/input/event5"
    QString reason; // one clause, as the system words it: "Permission denied"
};

/// What a button listener hears, on the reader's own thread.
enum class ButtonNotice {
    leftMouseDown, // any pointer's left button went down
    eventsLost,    // the kernel dropped events: presses may be missing
    devicesGone,   // a pointer went away
};

/// Attached for as long as it lives; once its destructor has returned no call is under way.
class ButtonListener {
public:
    virtual ~ButtonListener() = default;
};

/// The pointer devices of this machine, seen by one reader that the contact frames share.
class InputDevices {
public:
    virtual ~InputDevices() = default;

    /// Whether there is an input subsystem to watch, or a recording to play. Main thread.
    virtual bool available() = 0;

    /// Asks once more for those that could not be opened, so permission that arrived in the
    /// meantime takes effect. Main thread.
    virtual std::vector<UnreadableTrackpad> unreadableTrackpads() = 0;

    /// The handler is called on the reader's thread and must not block. Main thread.
    virtual std::unique_ptr<ButtonListener> listen(std::function<void(ButtonNotice)> handler) = 0;
};

} // namespace brimlow::platform
