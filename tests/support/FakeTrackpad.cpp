#include "tests/support/FakeTrackpad.h"

#include <dlfcn.h>

#include <cstdlib>
#include <vector>

namespace brimlow::test {

FakeTrackpad::FakeTrackpad(platform::VirtualTime& time, const std::string& image) : time_(time) {
    const std::string folder = BRIMLOW_FAKE_FRAMEWORKS "/" + image;
    setenv("BRIMLOW_FRAMEWORKS", folder.c_str(), 1);
    image_ = dlopen((folder + "/MultitouchSupport.so").c_str(), RTLD_NOW);
    if (image_)
        setHasDevice(true);
}

void FakeTrackpad::setHasDevice(bool hasDevice) {
    *static_cast<bool*>(dlsym(image_, "fakeHasDevice")) = hasDevice;
}

int FakeTrackpad::stopCount() const {
    return *static_cast<int*>(dlsym(image_, "fakeStopCount"));
}

bool FakeTrackpad::deliver(const MTFinger* fingers, std::int32_t count) {
    using Deliver = bool (*)(const MTFinger*, std::int32_t);
    const bool taken = reinterpret_cast<Deliver>(dlsym(image_, "fakeDeliver"))(fingers, count);
    time_.run();
    return taken;
}

bool FakeTrackpad::frame(std::initializer_list<Contact> contacts) {
    std::vector<MTFinger> fingers;
    for (const auto& contact : contacts) {
        MTFinger& finger = fingers.emplace_back();
        finger.identifier = contact.id;
        finger.state = contact.state;
        finger.normalized.pos = {static_cast<float>(contact.x), static_cast<float>(contact.y)};
        finger.size = static_cast<float>(contact.size);
        finger.majorAxis = static_cast<float>(contact.majorAxis);
    }
    return deliver(fingers.data(), static_cast<std::int32_t>(fingers.size()));
}

void FakeTrackpad::nullFrame() {
    deliver(nullptr, 0);
}

void FakeTrackpad::tap(double x, double y, TapShape shape) {
    Contact contact{
        .state = MTContactBegan, .x = x, .y = y, .size = shape.size, .majorAxis = shape.majorAxis};
    frame({contact});
    time_.advance(shape.duration);
    contact.state = MTContactLifted;
    contact.x += shape.drift;
    frame({contact});
    nullFrame();
}

} // namespace brimlow::test
