// The framework's image: four C functions, looked up by name, over the process' reader.

#include "platform/MultitouchSupport.h"

#include "platform/linux/evdev/InputReader.h"

using brimlow::platform::InputReader;

namespace {

// There is one device: all trackpads together.
constexpr std::int32_t deviceNumber = 0;

InputReader* readerOf(MTDeviceRef device) {
    return static_cast<InputReader*>(device);
}

} // namespace

extern "C" {

MTDeviceRef MTDeviceCreateDefault() {
    InputReader& reader = InputReader::shared();
    return reader.available() ? &reader : nullptr;
}

void MTRegisterContactFrameCallback(MTDeviceRef device, MTContactFrameCallback callback) {
    if (!device)
        return;
    InputReader::FrameHandler handler;
    if (callback)
        handler = [callback](std::span<const MTFinger> fingers, double timestamp,
                             std::int32_t frame) {
            callback(deviceNumber, fingers.empty() ? nullptr : fingers.data(),
                     static_cast<std::int32_t>(fingers.size()), timestamp, frame);
        };
    readerOf(device)->setFrameHandler(std::move(handler));
}

void MTDeviceStart(MTDeviceRef device, std::int32_t /*mode*/) {
    if (device)
        readerOf(device)->start();
}

void MTDeviceStop(MTDeviceRef device) {
    if (device)
        readerOf(device)->stop();
}

} // extern "C"
