#include "tools/mocked/MockedPad.h"

#include "platform/FileDescriptor.h"
#include "platform/linux/evdev/Recording.h"
#include "tools/mocked/MockedUevent.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <umockdev.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <stdexcept>
#include <thread>

namespace brimlow::platform {

namespace {

constexpr int firstMinor = 64; // of event0, as the kernel numbers them

template<typename Value>
std::vector<std::uint8_t> bytesOf(const Value& value) {
    const auto* first = reinterpret_cast<const std::uint8_t*>(&value);
    return {first, first + sizeof value};
}

std::vector<std::uint8_t> bytesOf(const std::string& text) {
    return {text.c_str(), text.c_str() + text.size() + 1};
}

template<std::size_t size>
std::vector<std::uint8_t> bytesOf(const std::bitset<size>& bits) {
    std::vector<std::uint8_t> bytes((size + 7) / 8);
    for (std::size_t bit = 0; bit < size; ++bit) {
        if (bits[bit])
            bytes[bit / 8] = static_cast<std::uint8_t>(bytes[bit / 8] | 1U << (bit % 8));
    }
    return bytes;
}

std::bitset<ABS_CNT> axesOf(const TrackpadDescription& pad) {
    std::bitset<ABS_CNT> axes;
    for (std::size_t axis = 0; axis < axes.size(); ++axis)
        axes[axis] = pad.axes[axis].has_value();
    return axes;
}

std::vector<std::uint8_t> bitsOf(const TrackpadDescription& pad, unsigned type) {
    std::bitset<EV_CNT> types;
    types[EV_SYN] = true;
    types[EV_KEY] = pad.keys.any();
    types[EV_REL] = pad.relatives.any();
    types[EV_ABS] = axesOf(pad).any();
    switch (type) {
    case EV_SYN:
        return bytesOf(types);
    case EV_KEY:
        return bytesOf(pad.keys);
    case EV_REL:
        return bytesOf(pad.relatives);
    case EV_ABS:
        return bytesOf(axesOf(pad));
    default:
        return {};
    }
}

/// What an untouched device answers; empty for what sets something, which always succeeds.
std::vector<std::uint8_t> answer(const TrackpadDescription& pad, unsigned long request) {
    const unsigned number = _IOC_NR(request);
    const std::size_t size = _IOC_SIZE(request);
    if (_IOC_DIR(request) != _IOC_READ)
        return {};
    switch (number) {
    case _IOC_NR(EVIOCGVERSION):
        return bytesOf(EV_VERSION);
    case _IOC_NR(EVIOCGID):
        return bytesOf(input_id{pad.bus, pad.vendor, pad.product, pad.version});
    case _IOC_NR(EVIOCGNAME(0)):
        return bytesOf(pad.name);
    case _IOC_NR(EVIOCGPROP(0)):
        return bytesOf(pad.properties);
    case _IOC_NR(EVIOCGMTSLOTS(0)):
        // The axis that is asked for is not known here. -1 says of each slot that nothing touches
        // it, and of its other axes a value that the first touch moves away from.
        return std::vector<std::uint8_t>(size, 0xff);
    default:
        break;
    }
    if (number >= _IOC_NR(EVIOCGABS(0)) && number < _IOC_NR(EVIOCGABS(0)) + ABS_CNT) {
        const auto& axis = pad.axes[number - _IOC_NR(EVIOCGABS(0))];
        const AxisRange range = axis.value_or(AxisRange{});
        return bytesOf(input_absinfo{0, range.minimum, range.maximum, 0, 0, range.resolution});
    }
    if (number >= _IOC_NR(EVIOCGBIT(0, 0)) && number < _IOC_NR(EVIOCGBIT(0, 0)) + EV_CNT)
        return bitsOf(pad, number - _IOC_NR(EVIOCGBIT(0, 0)));
    return std::vector<std::uint8_t>(size, 0); // keys and lamps: all off
}

void require(bool done, const char* what, GError* error = nullptr) {
    if (!done)
        throw std::runtime_error(std::string(what) + (error ? error->message : ""));
}

} // namespace

struct MockedInput::Testbed {
    UMockdevTestbed* bed = umockdev_testbed_new();
    ~Testbed() { g_object_unref(bed); }
};

MockedInput::MockedInput() : testbed_(std::make_unique<Testbed>()) {
    gchar* root = umockdev_testbed_get_root_dir(testbed_->bed);
    root_ = root;
    g_free(root);
    chmod(root_.c_str(), 0777); // a process of another user puts its sockets there
}

MockedInput::~MockedInput() = default;

std::vector<std::pair<std::string, std::string>> MockedInput::environment() const {
    return {{"LD_PRELOAD", "libumockdev-preload.so.0"}, {"UMOCKDEV_DIR", root_}};
}

/// Answers the device's control calls, on the testbed's own thread.
struct MockedPad::Ioctls {
    explicit Ioctls(TrackpadDescription pad) : description(std::move(pad)) {
        g_signal_connect(base, "handle-ioctl", G_CALLBACK(handle), this);
    }
    ~Ioctls() { g_object_unref(base); }

    static gboolean handle(UMockdevIoctlBase*, UMockdevIoctlClient* client, gpointer self) {
        const unsigned long request = umockdev_ioctl_client_get_request(client);
        if (_IOC_TYPE(request) != 'E') {
            umockdev_ioctl_client_complete(client, -1, ENOTTY);
            return TRUE;
        }
        auto bytes = answer(static_cast<Ioctls*>(self)->description, request);
        bytes.resize(std::min<std::size_t>(bytes.size(), _IOC_SIZE(request)));
        const auto size = static_cast<gint>(bytes.size());
        if (size > 0) {
            UMockdevIoctlData* argument = umockdev_ioctl_client_get_arg(client);
            UMockdevIoctlData* target =
                umockdev_ioctl_data_resolve(argument, 0, bytes.size(), nullptr);
            if (target) {
                umockdev_ioctl_data_update(target, 0, bytes.data(), size);
                umockdev_ioctl_data_unref(target);
            }
        }
        umockdev_ioctl_client_complete(client, size, 0);
        return TRUE;
    }

    TrackpadDescription description;
    UMockdevIoctlBase* base = umockdev_ioctl_base_new();
};

MockedPad::MockedPad(MockedInput& input, TrackpadDescription description, int number,
                     Announced announced)
    : input_(input), number_(std::to_string(number)), node_("/dev/input/event" + number_),
      devpath_("/devices/platform/pads/input/input" + number_ + "/event" + number_),
      ioctls_(std::make_unique<Ioctls>(std::move(description))) {
    const TrackpadDescription& pad = ioctls_->description;
    properties_ = {{"DEVNAME", node_},
                   {"ID_INPUT", "1"},
                   {"MAJOR", "13"},
                   {"MINOR", std::to_string(firstMinor + number)},
                   {"SUBSYSTEM", "input"}};
    if (pad.hasSlots() || pad.keys[BTN_TOOL_FINGER])
        properties_["ID_INPUT_TOUCHPAD"] = "1";
    if (pad.relatives[REL_X])
        properties_["ID_INPUT_MOUSE"] = "1";
    plug();
    if (announced == Announced::yes)
        announce("add");
}

MockedPad::~MockedPad() {
    UMockdevTestbed* bed = input_.testbed_->bed;
    umockdev_testbed_detach_ioctl(bed, node_.c_str(), nullptr);
    announce("remove");
    umockdev_testbed_remove_device(bed, ("/sys" + devpath_).c_str());
}

void MockedPad::plug() {
    std::string text = "P: " + devpath_ + "\nN: input/event" + number_ + "\n";
    for (const auto& [key, value] : properties_)
        text.append("E: ").append(key).append("=").append(value) += '\n';
    text += "A: dev=13:" + properties_["MINOR"] + "\nL: device=../../input" + number_
            + "\n\nP: " + devpath_.substr(0, devpath_.rfind('/'))
            + "\nE: SUBSYSTEM=input\nA: name=" + ioctls_->description.name + "\n";
    UMockdevTestbed* bed = input_.testbed_->bed;
    GError* error = nullptr;
    require(umockdev_testbed_add_from_string(bed, text.c_str(), &error), "add: ", error);
    require(umockdev_testbed_attach_ioctl(bed, node_.c_str(), ioctls_->base, &error),
            "attach_ioctl: ", error);
    chmod((input_.root_ + "/ioctl" + node_).c_str(), 0777);
}

void MockedPad::announce(const std::string& action) {
    auto properties = properties_;
    properties["DEVPATH"] = devpath_;
    sendUevent(input_.root_, action, std::move(properties));
}

void MockedPad::write(std::span<const input_event> events) {
    const int descriptor = umockdev_testbed_get_dev_fd(input_.testbed_->bed, node_.c_str());
    // A reader that has stopped must end the test, not hang it.
    fcntl(descriptor, F_SETFL, fcntl(descriptor, F_GETFL) | O_NONBLOCK);
    const ssize_t written = ::write(descriptor, events.data(), events.size_bytes());
    require(written == static_cast<ssize_t>(events.size_bytes()), "write: the reader is behind");
}

void MockedPad::play(std::span<const input_event> events) {
    const auto start = std::chrono::steady_clock::now();
    for (auto rest = events; !rest.empty();) {
        const auto last = std::find_if(rest.begin(), rest.end(), [](const input_event& event) {
            return event.type == EV_SYN && event.code == SYN_REPORT;
        });
        const auto count = static_cast<std::size_t>(last - rest.begin()) + (last != rest.end());
        const double at = secondsOf(rest.front()) - secondsOf(events.front());
        std::this_thread::sleep_until(start + std::chrono::duration<double>(at));
        write(rest.first(count));
        rest = rest.subspan(count);
    }
}

void MockedPad::playUnheard(std::span<const input_event> events) {
    play(events);
    const FileDescriptor reader(open((input_.root_ + node_).c_str(), O_RDONLY | O_NOCTTY));
    pollfd readable{reader.get(), POLLIN, 0};
    std::array<char, 4096> forgotten{};
    std::size_t left = events.size_bytes();
    // Less than that is there when a program did listen.
    while (left > 0 && poll(&readable, 1, 100) > 0)
        left -= static_cast<std::size_t>(std::max<ssize_t>(
            read(reader.get(), forgotten.data(), std::min(left, forgotten.size())), 0));
}

void MockedPad::announceChange() {
    announce("change");
}

void MockedPad::setPermissions(unsigned mode) {
    require(chmod((input_.root_ + node_).c_str(), mode) == 0, "chmod: ");
}

TrackpadDescription ordinaryMouse() {
    TrackpadDescription mouse;
    mouse.name = "Brimlow Ordinary Mouse";
    mouse.bus = BUS_USB;
    mouse.vendor = 0x1209;
    mouse.product = 0x0002;
    mouse.keys.set(BTN_LEFT).set(BTN_RIGHT).set(BTN_MIDDLE);
    mouse.relatives.set(REL_X).set(REL_Y).set(REL_WHEEL);
    return mouse;
}

} // namespace brimlow::platform
