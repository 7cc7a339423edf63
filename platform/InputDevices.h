#pragma once

#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace brimlow::platform {

/// What makes a trackpad readable.
enum class TrackpadRemedy {
    none,        // it is
    installRule, // the udev rule that opens pointers to the user at the screen
    applyRule,   // the rule is installed, and udev has not looked at this device since
    reconnect,   // nothing that a rule could mend
};

/// A trackpad that exists.
struct Trackpad {
    QString name;           // as the kernel calls it
    QString node;           // "/dev/input/event5"
    QString complaint = {}; // why it cannot be read: "Permission denied"; empty when it can
    TrackpadRemedy remedy = TrackpadRemedy::none;
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

    /// All of them. Those that could not be opened are tried once more, so permission that arrived
    /// in the meantime takes effect. Main thread.
    virtual std::vector<Trackpad> trackpads() = 0;

    /// The handler is called on the reader's thread and must not block. Main thread.
    virtual std::unique_ptr<ButtonListener> listen(std::function<void(ButtonNotice)> handler) = 0;
};

} // namespace brimlow::platform
