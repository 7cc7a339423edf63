#pragma once

#include "platform/FileDescriptor.h"
#include "platform/linux/evdev/TrackpadDescription.h"

#include <linux/input.h>

#include <functional>
#include <memory>
#include <string>
#include <variant>

struct libevdev;

namespace brimlow::platform {

/// What comes out of an event node.
class EventNodeListener {
public:
    virtual ~EventNodeListener() = default;
    virtual void event(const input_event& event) = 0;
    /// The kernel dropped events. Those up to recovered() tell how things stand now.
    virtual void eventsLost() = 0;
    virtual void recovered() = 0;
};

/// One open /dev/input/event*. It is read, never grabbed and never written to.
class EventNode {
public:
    /// The node, or the errno that tells why not.
    static std::variant<std::unique_ptr<EventNode>, int> open(const std::string& path);

    ~EventNode();
    EventNode(const EventNode&) = delete;
    EventNode& operator=(const EventNode&) = delete;

    int descriptor() const { return descriptor_.get(); }
    TrackpadDescription description() const;

    /// Asks the kernel not to wake us for anything but the left button. What a kernel cannot leave
    /// out costs time, no more.
    void askForLeftButtonOnly() const;

    /// The state as it was when the node was opened or last read, as events.
    void tellState(const std::function<void(const input_event&)>& tell) const;

    enum class Drained { open, gone };
    /// Tells all that is there to read. No allocation.
    Drained drain(EventNodeListener& listener);

private:
    explicit EventNode(FileDescriptor descriptor);
    void resynchronise(EventNodeListener& listener);

    FileDescriptor descriptor_;
    std::unique_ptr<libevdev, void (*)(libevdev*)> device_;
};

} // namespace brimlow::platform
