// A framework image for tests: has the entry points (or all but one, see CMakeLists.txt) and plays
// the frames that the test hands it.

#include "platform/MultitouchSupport.h"

#define EXPORTED __attribute__((visibility("default")))

namespace {
[[maybe_unused]] int device = 0;
MTContactFrameCallback registered = nullptr;
bool running = false;
} // namespace

extern "C" {

EXPORTED bool fakeHasDevice = true;
EXPORTED int fakeStopCount = 0;

EXPORTED bool fakeDeliver(const MTFinger* fingers, std::int32_t count) {
    return registered && running && registered(0, fingers, count, 0, 0) == 0;
}

#ifndef WITHOUT_CREATE
EXPORTED MTDeviceRef MTDeviceCreateDefault() {
    return fakeHasDevice ? &device : nullptr;
}
#endif

#ifndef WITHOUT_REGISTER
EXPORTED void MTRegisterContactFrameCallback(MTDeviceRef, MTContactFrameCallback callback) {
    registered = callback;
}
#endif

#ifndef WITHOUT_START
EXPORTED void MTDeviceStart(MTDeviceRef, std::int32_t mode) {
    running = mode == 0;
}
#endif

#ifndef WITHOUT_STOP
EXPORTED void MTDeviceStop(MTDeviceRef) {
    running = false;
    ++fakeStopCount;
}
#endif

} // extern "C"
