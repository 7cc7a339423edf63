// touch-probe: opens the framework's image as the program does, and prints what comes out of it.
//
//     touch-probe <image>
//
// One line each: "device" or "no device", then per frame "frame <id>:<state>@<x>,<y> ...", per
// button notice "left", "lost" or "gone". A line on standard input asks for the unreadable
// trackpads: "unreadable <node>" for each, then "asked"; the lines "stop", "away" and "back" do
// what they say first.

#include "platform/MultitouchSupport.h"
#include "platform/linux/evdev/InputReader.h"

#include <dlfcn.h>

#include <cstdio>
#include <iostream>
#include <string>

using namespace brimlow::platform;

namespace {

void say(const std::string& line) {
    std::puts(line.c_str());
    std::fflush(stdout);
}

std::int32_t frame(std::int32_t, const MTFinger* fingers, std::int32_t count, double,
                   std::int32_t) {
    std::string line = "frame";
    for (std::int32_t index = 0; index < count; ++index) {
        const MTFinger& finger = fingers[index];
        char text[64];
        std::snprintf(text, sizeof text, " %d:%d@%.2f,%.2f", finger.identifier, finger.state,
                      static_cast<double>(finger.normalized.pos.x),
                      static_cast<double>(finger.normalized.pos.y));
        line += text;
    }
    say(line);
    return 0;
}

template<typename Function>
Function symbol(void* image, const char* name) {
    return reinterpret_cast<Function>(dlsym(image, name));
}

} // namespace

int main(int argc, char** argv) {
    void* image = argc > 1 ? dlopen(argv[1], RTLD_NOW) : nullptr;
    if (!image)
        return 1;
    const auto create = symbol<MTDeviceCreateDefaultFunction>(image, "MTDeviceCreateDefault");
    const auto attach =
        symbol<MTRegisterContactFrameCallbackFunction>(image, "MTRegisterContactFrameCallback");
    const auto start = symbol<MTDeviceStartFunction>(image, "MTDeviceStart");
    const auto stop = symbol<MTDeviceStopFunction>(image, "MTDeviceStop");

    InputReader& reader = InputReader::shared(); // the image's own, too
    const auto listener = reader.addButtonListener([](ButtonEvent event) {
        say(event == ButtonEvent::leftMouseDown ? "left"
            : event == ButtonEvent::eventsLost  ? "lost"
                                                : "gone");
    });
    MTDeviceRef device = create();
    attach(device, frame);
    start(device, 0);
    say(device ? "device" : "no device");
    for (std::string line; std::getline(std::cin, line);) {
        if (line == "stop")
            stop(device);
        if (line == "away" || line == "back")
            reader.setSessionState(line == "away" ? SessionState::inactive : SessionState::active);
        for (const TrackpadNode& trackpad : reader.trackpads())
            if (trackpad.error != 0)
                say("unreadable " + trackpad.node);
        say("asked");
    }
    stop(device);
    reader.removeButtonListener(listener);
    return 0;
}
