#pragma once

#include "platform/linux/evdev/ContactFrames.h"
#include "platform/linux/evdev/DeviceWatch.h"
#include "platform/linux/evdev/EventLoop.h"
#include "platform/linux/evdev/InputEvents.h"
#include "platform/linux/evdev/TouchDecoder.h"

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace brimlow::platform {

/// The pointers that are plugged in: opened as they come, closed as they go. Those that may not be
/// opened are remembered and tried again. The loop's thread only.
class PointerDevices {
public:
    using ButtonHandler = std::function<void(ButtonEvent)>;

    /// The syspaths of trackpads whose user was told that they cannot be read.
    using Reported = std::set<std::string>;

    /// `onlyTouchpad` names the one node that is the touchpad, whatever udev thinks; empty: every
    /// touchpad is one. `reported` outlives this, so that nobody is told twice.
    PointerDevices(EventLoop& loop, ContactIdentities& identities, ContactFrames& frames,
                   ButtonHandler buttons, std::string onlyTouchpad, Reported& reported);
    ~PointerDevices();
    PointerDevices(const PointerDevices&) = delete;
    PointerDevices& operator=(const PointerDevices&) = delete;

    /// All trackpads. Those that could not be opened are tried once more.
    std::vector<TrackpadNode> trackpads();

private:
    class Device;
    struct Refusal {
        PointerNode pointer;
        int error; // errno
    };

    void enumerate();
    void changed(DeviceChange change, PointerNode pointer);
    void open(const PointerNode& pointer);
    void refuse(const PointerNode& pointer, int error);
    void remove(const std::string& syspath);
    bool isOpen(const PointerNode& pointer) const;

    EventLoop& loop_;
    ContactIdentities& identities_;
    ContactFrames& frames_;
    ButtonHandler buttons_;
    std::string onlyTouchpad_;
    DeviceWatch watch_;
    std::map<std::string, std::unique_ptr<Device>> devices_; // by syspath
    std::map<std::string, Refusal> refused_;                 // by syspath
    Reported& reported_;
};

} // namespace brimlow::platform
