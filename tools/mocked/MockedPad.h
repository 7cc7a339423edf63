#pragma once

#include "platform/linux/evdev/TrackpadDescription.h"

#include <linux/input.h>

#include <map>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace brimlow::platform {

/// Input devices that exist for the processes that are started with environment(), and nowhere
/// else: udev, libevdev and the nodes below /dev/input find them. This process needs no preload and
/// plugs, unplugs and moves the fingers.
///
/// Not mocked, whatever one does: events that were lost, and the error with which a read ends when
/// a device is unplugged.
class MockedInput {
public:
    /// Without a device; /dev/input is there as soon as one was plugged.
    MockedInput();
    ~MockedInput();
    MockedInput(const MockedInput&) = delete;
    MockedInput& operator=(const MockedInput&) = delete;

    /// To be added to a child's environment. LD_PRELOAD replaces what stands there.
    std::vector<std::pair<std::string, std::string>> environment() const;

    /// Where the mocked /dev and /sys are.
    const std::string& root() const { return root_; }

private:
    friend class MockedPad;
    struct Testbed;
    std::unique_ptr<Testbed> testbed_;
    std::string root_;
};

/// One device of a mocked input subsystem, unplugged when it is destroyed. Its udev properties
/// follow from its description: with slots or BTN_TOOL_FINGER it is a touchpad, with REL_X a mouse.
class MockedPad {
public:
    enum class Announced { yes, no }; // whether udev tells the processes that run already

    /// `number` is the 5 of /dev/input/event5. Each can be plugged once: umockdev forgets no node.
    MockedPad(MockedInput& input, TrackpadDescription description, int number,
              Announced announced = Announced::yes);
    ~MockedPad();
    MockedPad(const MockedPad&) = delete;
    MockedPad& operator=(const MockedPad&) = delete;

    /// "/dev/input/event5"
    const std::string& node() const { return node_; }

    /// Hands over events as they are; those of one frame together, and no more than a few frames
    /// before the reader had time to take them: about 4 KB fit.
    void write(std::span<const input_event> events);

    /// Plays events at the times they carry, the first of them now, each frame by itself. Returns
    /// when the last is written.
    void play(std::span<const input_event> events);

    /// Plays events that no program hears: what is written while none has the device open waits for
    /// the next one here, where a kernel would forget it.
    void playUnheard(std::span<const input_event> events);

    /// udev's notice that something about the device changed.
    void announceChange();

    /// The node's permissions, as chmod takes them. They do not bind root.
    void setPermissions(unsigned mode);

private:
    struct Ioctls;

    void plug();
    void announce(const std::string& action);

    MockedInput& input_;
    std::string number_;
    std::string node_;
    std::string devpath_; // below /sys
    std::map<std::string, std::string> properties_;
    std::unique_ptr<Ioctls> ioctls_;
};

/// A mouse with a wheel and three buttons.
TrackpadDescription ordinaryMouse();

} // namespace brimlow::platform
