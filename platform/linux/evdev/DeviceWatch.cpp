#include "platform/linux/evdev/DeviceWatch.h"

#include <libudev.h>

#include <cstdlib>
#include <string_view>

namespace brimlow::platform {

namespace {

template<typename Object, Object* (*release)(Object*)>
void drop(Object* object) {
    release(object);
}

using Device = std::unique_ptr<udev_device, void (*)(udev_device*)>;

Device own(udev_device* device) {
    return Device(device, &drop<udev_device, udev_device_unref>);
}

std::string_view view(const char* text) {
    return text ? text : "";
}

bool is(udev_device* device, const char* property) {
    return view(udev_device_get_property_value(device, property)) == "1";
}

double millimetres(udev_device* device, const char* property) {
    const char* text = udev_device_get_property_value(device, property);
    return text ? std::strtod(text, nullptr) : 0;
}

std::optional<PointerNode> describe(udev_device* device) {
    const char* node = udev_device_get_devnode(device);
    if (!node || !view(udev_device_get_sysname(device)).starts_with("event"))
        return std::nullopt;
    const bool touchpad = is(device, "ID_INPUT_TOUCHPAD");
    if (is(device, "ID_INPUT_KEYBOARD") || !(touchpad || is(device, "ID_INPUT_MOUSE")))
        return std::nullopt;
    PointerNode pointer;
    pointer.syspath = udev_device_get_syspath(device);
    pointer.node = node;
    if (udev_device* parent = udev_device_get_parent(device)) // belongs to its child
        pointer.name = view(udev_device_get_sysattr_value(parent, "name"));
    pointer.kind = touchpad ? PointerKind::touchpad : PointerKind::mouse;
    const PadSize hint{millimetres(device, "ID_INPUT_WIDTH_MM"),
                       millimetres(device, "ID_INPUT_HEIGHT_MM")};
    if (hint.width > 0 && hint.height > 0)
        pointer.sizeHint = hint;
    return pointer;
}

} // namespace

DeviceWatch::DeviceWatch()
    : udev_(udev_new(), &drop<udev, udev_unref>),
      monitor_(nullptr, &drop<udev_monitor, udev_monitor_unref>) {
    if (!udev_)
        return;
    monitor_.reset(udev_monitor_new_from_netlink(udev_.get(), "udev"));
    if (!monitor_)
        return;
    udev_monitor_filter_add_match_subsystem_devtype(monitor_.get(), "input", nullptr);
    udev_monitor_enable_receiving(monitor_.get());
}

DeviceWatch::~DeviceWatch() = default;

int DeviceWatch::descriptor() const {
    return monitor_ ? udev_monitor_get_fd(monitor_.get()) : -1;
}

void DeviceWatch::enumerate(const Handler& handler) const {
    if (!udev_)
        return;
    const std::unique_ptr<udev_enumerate, void (*)(udev_enumerate*)> list(
        udev_enumerate_new(udev_.get()), &drop<udev_enumerate, udev_enumerate_unref>);
    udev_enumerate_add_match_subsystem(list.get(), "input");
    udev_enumerate_add_match_sysname(list.get(), "event*");
    udev_enumerate_scan_devices(list.get());
    udev_list_entry* entry = nullptr;
    udev_list_entry_foreach(entry, udev_enumerate_get_list_entry(list.get())) {
        const Device device =
            own(udev_device_new_from_syspath(udev_.get(), udev_list_entry_get_name(entry)));
        if (!device)
            continue;
        if (const auto pointer = describe(device.get()))
            handler(DeviceChange::present, *pointer);
    }
}

void DeviceWatch::receive(const Handler& handler) const {
    while (const Device device = own(udev_monitor_receive_device(monitor_.get()))) {
        if (view(udev_device_get_action(device.get())) == "remove") {
            PointerNode gone;
            gone.syspath = udev_device_get_syspath(device.get());
            handler(DeviceChange::removed, gone);
        } else if (const auto pointer = describe(device.get())) {
            handler(DeviceChange::present, *pointer);
        }
    }
}

} // namespace brimlow::platform
