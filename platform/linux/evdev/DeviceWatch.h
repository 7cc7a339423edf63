#pragma once

#include "platform/linux/evdev/TrackpadDescription.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

struct udev;
struct udev_device;
struct udev_monitor;

namespace brimlow::platform {

enum class PointerKind {
    touchpad,
    mouse, // anything else that moves a pointer; only its left button interests us
};

/// An event node as udev describes it.
struct PointerNode {
    std::string syspath; // names the device for as long as it is plugged in; nodes are reused
    std::string node;    // "/dev/input/event5"
    std::string name;    // as the kernel calls it
    PointerKind kind = PointerKind::mouse;
    std::optional<PadSize> sizeHint;
};

enum class DeviceChange { present, removed };

/// Knows from udev which pointers there are. Keyboards are never told of, not even those that carry
/// a pointer. One thread.
class DeviceWatch {
public:
    /// Of a removed device only the syspath is given.
    using Handler = std::function<void(DeviceChange, const PointerNode&)>;

    /// Changes are kept for receive() from now on.
    DeviceWatch();
    ~DeviceWatch();
    DeviceWatch(const DeviceWatch&) = delete;
    DeviceWatch& operator=(const DeviceWatch&) = delete;

    /// -1 where there is no udev: then there is nothing to enumerate or to receive either.
    int descriptor() const;
    void enumerate(const Handler& handler) const;
    void receive(const Handler& handler) const;

private:
    std::unique_ptr<udev, void (*)(udev*)> udev_;
    std::unique_ptr<udev_monitor, void (*)(udev_monitor*)> monitor_;
};

} // namespace brimlow::platform
