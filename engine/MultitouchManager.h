#pragma once

#include "engine/MultitouchFramework.h"
#include "engine/TapInfo.h"
#include "platform/Date.h"
#include "platform/MainQueue.h"
#include "platform/Observable.h"

#include <functional>
#include <memory>
#include <memory_resource>
#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

namespace brimlow {

/// The program's only source of touch input: turns the framework's contact frames into taps and the
/// set of fingers on the pad, whichever application has the focus. Knows nothing of bindings.
/// Main thread, but for the framework's callback inside.
class MultitouchManager : public platform::ObservableObject {
public:
    MultitouchManager();
    /// Stops the device.
    ~MultitouchManager();

    /// Opens the framework and its default device and starts delivery, for the rest of this
    /// object's life. Prints one line that says how it went. Call it once.
    void start();

    /// One contact frame; delivered ones come here through the main queue. Linear in the number of
    /// contacts, and allocates nothing once warm.
    void processFingers(std::span<const MTFinger> fingers);

    /// Called for every detected tap, after lastTap was set.
    std::function<void(const TapInfo&)> onTap;

    platform::Published<std::optional<TapInfo>> lastTap{*this};
    /// In the order of the contact records; assigned on every frame.
    platform::Published<std::vector<LiveTouch>> liveTouches{*this};

private:
    struct TouchTracking {
        platform::Instant beganAt;
        double beganX;
        double beganY;
        double maxSize;
        double maxMajorAxis;
        std::uint64_t seenInFrame;
    };

    static std::int32_t contactFrameCallback(std::int32_t device, const MTFinger* fingers,
                                             std::int32_t count, double timestamp,
                                             std::int32_t frame);
    static void processQueuedFrames();

    void touched(const MTFinger& finger, platform::Instant now);
    void ended(const MTFinger& finger, platform::Instant now);

    // Nodes are taken from the pool, so a finger that comes down allocates nothing once warm.
    std::pmr::unsynchronized_pool_resource pool_;
    std::pmr::unordered_map<std::int32_t, TouchTracking> activeTouches_{&pool_};
    std::vector<LiveTouch> live_; // of the frame being processed
    std::uint64_t frame_ = 0;
    MTDeviceRef device_ = nullptr;
    std::unique_ptr<platform::DispatchSource> frameSource_;
};

} // namespace brimlow
