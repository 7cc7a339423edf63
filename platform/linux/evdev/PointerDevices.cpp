#include "platform/linux/evdev/PointerDevices.h"

#include "platform/linux/evdev/EventNode.h"
#include "platform/linux/evdev/PadFeed.h"
#include "platform/linux/evdev/StandardError.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <optional>
#include <system_error>

namespace brimlow::platform {

namespace {

/// Also through links, such as those of /dev/input/by-path.
bool sameNode(const std::string& one, const std::string& other) {
    struct stat first {};
    struct stat second {};
    return one == other
           || (stat(one.c_str(), &first) == 0 && stat(other.c_str(), &second) == 0
               && S_ISCHR(first.st_mode) && S_ISCHR(second.st_mode)
               && first.st_rdev == second.st_rdev);
}

std::string reasonOf(int error) {
    return std::generic_category().message(error);
}

} // namespace

/// One open pointer.
class PointerDevices::Device final : public EventNodeListener {
public:
    Device(PointerDevices& owner, PointerNode pointer, std::unique_ptr<EventNode> node)
        : owner_(owner), pointer_(std::move(pointer)), node_(std::move(node)) {
        if (pointer_.kind == PointerKind::touchpad)
            startFeed();
        else
            node_->askForLeftButtonOnly();
        owner_.loop_.watch(node_->descriptor(), [this](std::uint32_t) { readable(); });
    }
    ~Device() override { owner_.loop_.unwatch(node_->descriptor()); }

    const PointerNode& pointer() const { return pointer_; }

private:
    void startFeed() {
        TrackpadDescription description = node_->description();
        description.sizeHint = pointer_.sizeHint;
        feed_.emplace(description, owner_.identities_, owner_.frames_);
        feed_->beginResync();
        node_->tellState([this](const input_event& event) { feed_->feed(event); });
        feed_->endResync();
    }

    void readable() {
        if (node_->drain(*this) == EventNode::Drained::open)
            return;
        PointerDevices& owner = owner_;
        const std::string syspath = pointer_.syspath;
        owner.remove(syspath); // and with it this object
    }

    void event(const input_event& event) override {
        if (isLeftPress(event) && !recovering_)
            owner_.buttons_(ButtonEvent::leftMouseDown);
        if (feed_)
            feed_->feed(event);
    }

    void eventsLost() override {
        recovering_ = true;
        if (feed_)
            feed_->beginResync();
    }

    void recovered() override {
        recovering_ = false;
        if (feed_)
            feed_->endResync();
        owner_.buttons_(ButtonEvent::eventsLost);
    }

    PointerDevices& owner_;
    PointerNode pointer_;
    std::unique_ptr<EventNode> node_;
    std::optional<PadFeed> feed_;
    bool recovering_ = false;
};

PointerDevices::PointerDevices(EventLoop& loop, ContactIdentities& identities,
                               ContactFrames& frames, ButtonHandler buttons,
                               std::string onlyTouchpad, Reported& reported)
    : loop_(loop), identities_(identities), frames_(frames), buttons_(std::move(buttons)),
      onlyTouchpad_(std::move(onlyTouchpad)), reported_(reported) {
    if (watch_.descriptor() >= 0)
        loop_.watch(watch_.descriptor(), [this](std::uint32_t) {
            watch_.receive([this](DeviceChange change, const PointerNode& pointer) {
                changed(change, pointer);
            });
        });
    enumerate();
}

PointerDevices::~PointerDevices() {
    if (watch_.descriptor() >= 0)
        loop_.unwatch(watch_.descriptor());
}

void PointerDevices::enumerate() {
    watch_.enumerate(
        [this](DeviceChange change, const PointerNode& pointer) { changed(change, pointer); });
    if (onlyTouchpad_.empty())
        return;
    // A node that udev does not tell of is its own name.
    const PointerNode named{onlyTouchpad_, onlyTouchpad_, onlyTouchpad_, PointerKind::touchpad, {}};
    if (!isOpen(named) && refused_.empty())
        open(named);
}

void PointerDevices::changed(DeviceChange change, PointerNode pointer) {
    if (change == DeviceChange::removed) {
        refused_.erase(pointer.syspath);
        remove(pointer.syspath);
        return;
    }
    if (!onlyTouchpad_.empty()) {
        const bool named = sameNode(pointer.node, onlyTouchpad_);
        pointer.kind = named ? PointerKind::touchpad : PointerKind::mouse;
    }
    if (!isOpen(pointer))
        open(pointer);
}

bool PointerDevices::isOpen(const PointerNode& pointer) const {
    return std::any_of(devices_.begin(), devices_.end(), [&](const auto& entry) {
        return entry.first == pointer.syspath
               || sameNode(entry.second->pointer().node, pointer.node);
    });
}

void PointerDevices::open(const PointerNode& pointer) {
    refused_.erase(pointer.syspath);
    auto opened = EventNode::open(pointer.node);
    if (const int* error = std::get_if<int>(&opened))
        refuse(pointer, *error);
    else
        devices_[pointer.syspath] = std::make_unique<Device>(
            *this, pointer, std::move(std::get<std::unique_ptr<EventNode>>(opened)));
}

void PointerDevices::refuse(const PointerNode& pointer, int error) {
    if (error == ENOENT || error == ENODEV || error == ENXIO)
        return; // gone again before it was opened
    refused_[pointer.syspath] = {pointer, error};
    if (pointer.kind != PointerKind::touchpad || !reported_.insert(pointer.syspath).second)
        return;
    printToStandardError("Brimlow: cannot read the trackpad \"" + pointer.name + "\" ("
                         + pointer.node + "): " + reasonOf(error)
                         + "; a udev rule that tags pointers with \"uaccess\" "
                           "(70-brimlow.rules) lets the user at the screen read them");
}

void PointerDevices::remove(const std::string& syspath) {
    if (devices_.erase(syspath) > 0)
        buttons_(ButtonEvent::devicesGone);
}

std::vector<TrackpadNode> PointerDevices::trackpads() {
    const auto before = refused_;
    for (const auto& [syspath, refusal] : before)
        open(refusal.pointer);
    std::vector<TrackpadNode> trackpads;
    const auto add = [&](const PointerNode& pointer, int error) {
        if (pointer.kind == PointerKind::touchpad)
            trackpads.push_back({pointer.name, pointer.node, error});
    };
    for (const auto& [syspath, device] : devices_)
        add(device->pointer(), 0);
    for (const auto& [syspath, refusal] : refused_)
        add(refusal.pointer, refusal.error);
    return trackpads;
}

} // namespace brimlow::platform
