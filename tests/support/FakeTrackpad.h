#pragma once

#include "platform/MultitouchSupport.h"
#include "platform/simulated/VirtualTime.h"

#include <initializer_list>
#include <string>

namespace brimlow::test {

/// One contact as a test describes it.
struct Contact {
    std::int32_t id = 1;
    std::int32_t state = MTContactTouching;
    double x = 0.5;
    double y = 0.5;
    double size = 0.5;
    double majorAxis = 7;
};

struct TapShape {
    double duration = 0.1; // seconds
    double size = 0.5;
    double majorAxis = 7; // mm
    double drift = 0;     // how far x moves before the finger lifts
};

/// Plays contact frames into the manager under test through a real framework image, on virtual
/// time. Make it before anything loads the framework: an image is loaded once per process.
class FakeTrackpad {
public:
    /// `image` is a folder of images: "complete", or "without-" and the symbol that it lacks, or
    /// one that is not there.
    explicit FakeTrackpad(platform::VirtualTime& time, const std::string& image = "complete");

    void setHasDevice(bool hasDevice);
    int stopCount() const;

    /// One frame, processed before this returns. False when nobody listens.
    bool frame(std::initializer_list<Contact> contacts);
    /// What the framework calls with when nothing touches.
    void nullFrame();
    /// A whole tap: down, up after its duration, and the empty frame that follows.
    void tap(double x, double y, TapShape shape = {});

private:
    bool deliver(const MTFinger* fingers, std::int32_t count);

    platform::VirtualTime& time_;
    void* image_;
};

} // namespace brimlow::test
