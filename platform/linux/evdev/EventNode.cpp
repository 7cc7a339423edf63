#include "platform/linux/evdev/EventNode.h"

#include <fcntl.h>
#include <libevdev/libevdev.h>
#include <sys/ioctl.h>

#include <array>
#include <cerrno>
#include <cstdarg>
#include <ctime>

namespace brimlow::platform {

namespace {

void keepQuiet(const libevdev*, libevdev_log_priority, void*, const char*, int, const char*,
               const char*, va_list) {}

input_event stateEvent(unsigned type, unsigned code, int value) {
    input_event event{};
    event.type = static_cast<std::uint16_t>(type);
    event.code = static_cast<std::uint16_t>(code);
    event.value = value;
    return event;
}

/// Lets only these codes of one type through; for type 0 they are the types themselves.
template<std::size_t bytes>
void letThrough(int descriptor, unsigned type, const std::array<std::uint8_t, bytes>& codes) {
    input_mask mask{};
    mask.type = type;
    mask.codes_size = bytes;
    mask.codes_ptr = reinterpret_cast<std::uintptr_t>(codes.data());
    ioctl(descriptor, EVIOCSMASK, &mask);
}

} // namespace

std::variant<std::unique_ptr<EventNode>, int> EventNode::open(const std::string& path) {
    FileDescriptor descriptor(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!descriptor)
        return errno;
    std::unique_ptr<EventNode> node(new EventNode(std::move(descriptor)));
    if (const int error = libevdev_set_fd(node->device_.get(), node->descriptor()); error != 0)
        return -error;
    // Where it fails the time is the wall clock's, and nothing here counts on it.
    libevdev_set_clock_id(node->device_.get(), CLOCK_MONOTONIC);
    return node;
}

EventNode::EventNode(FileDescriptor descriptor)
    : descriptor_(std::move(descriptor)), device_(libevdev_new(), &libevdev_free) {
    libevdev_set_device_log_function(device_.get(), keepQuiet, LIBEVDEV_LOG_ERROR, nullptr);
}

EventNode::~EventNode() = default;

TrackpadDescription EventNode::description() const {
    const libevdev* device = device_.get();
    TrackpadDescription description;
    description.name = libevdev_get_name(device);
    description.bus = static_cast<std::uint16_t>(libevdev_get_id_bustype(device));
    description.vendor = static_cast<std::uint16_t>(libevdev_get_id_vendor(device));
    description.product = static_cast<std::uint16_t>(libevdev_get_id_product(device));
    description.version = static_cast<std::uint16_t>(libevdev_get_id_version(device));
    for (unsigned property = 0; property < INPUT_PROP_CNT; ++property)
        description.properties[property] = libevdev_has_property(device, property) != 0;
    for (unsigned key = 0; key < KEY_CNT; ++key)
        description.keys[key] = libevdev_has_event_code(device, EV_KEY, key) != 0;
    for (unsigned relative = 0; relative < REL_CNT; ++relative)
        description.relatives[relative] = libevdev_has_event_code(device, EV_REL, relative) != 0;
    for (unsigned axis = 0; axis < ABS_CNT; ++axis) {
        if (const input_absinfo* info = libevdev_get_abs_info(device, axis))
            description.axes[axis] = {info->minimum, info->maximum, info->resolution};
    }
    return description;
}

void EventNode::askForLeftButtonOnly() const {
    std::array<std::uint8_t, KEY_CNT / 8> keys{};
    keys[BTN_LEFT / 8] = 1U << (BTN_LEFT % 8);
    letThrough(descriptor(), EV_KEY, keys);
    letThrough(descriptor(), EV_SYN, std::array<std::uint8_t, 1>{1U << EV_SYN | 1U << EV_KEY});
}

void EventNode::tellState(const std::function<void(const input_event&)>& tell) const {
    const libevdev* device = device_.get();
    const int slots = libevdev_get_num_slots(device); // -1 without any
    for (int slot = 0; slot < slots; ++slot) {
        tell(stateEvent(EV_ABS, ABS_MT_SLOT, slot));
        for (unsigned axis = ABS_MT_SLOT + 1; axis < ABS_CNT; ++axis) {
            int value = 0;
            if (libevdev_fetch_slot_value(device, slot, axis, &value) != 0)
                tell(stateEvent(EV_ABS, axis, value));
        }
    }
    if (slots > 0)
        tell(stateEvent(EV_ABS, ABS_MT_SLOT, libevdev_get_current_slot(device)));
    for (const unsigned axis : {ABS_X, ABS_Y, ABS_PRESSURE})
        tell(stateEvent(EV_ABS, axis, libevdev_get_event_value(device, EV_ABS, axis)));
    for (unsigned key = BTN_DIGI; key < BTN_WHEEL; ++key) // BTN_TOUCH and the tools
        tell(stateEvent(EV_KEY, key, libevdev_get_event_value(device, EV_KEY, key)));
}

EventNode::Drained EventNode::drain(EventNodeListener& listener) {
    do {
        input_event event{};
        const int status = libevdev_next_event(device_.get(), LIBEVDEV_READ_FLAG_NORMAL, &event);
        if (status == LIBEVDEV_READ_STATUS_SUCCESS)
            listener.event(event);
        else if (status == LIBEVDEV_READ_STATUS_SYNC)
            resynchronise(listener);
        else if (status == -EAGAIN || status == -EINTR || status == -EINVAL)
            return Drained::open; // the last: half an event, the rest is under way
        else
            return Drained::gone;
        // What libevdev has read already does not show at the descriptor.
    } while (libevdev_has_event_pending(device_.get()) > 0);
    return Drained::open;
}

void EventNode::resynchronise(EventNodeListener& listener) {
    listener.eventsLost();
    input_event event{};
    while (libevdev_next_event(device_.get(), LIBEVDEV_READ_FLAG_SYNC, &event)
           == LIBEVDEV_READ_STATUS_SYNC)
        listener.event(event);
    listener.recovered();
}

} // namespace brimlow::platform
