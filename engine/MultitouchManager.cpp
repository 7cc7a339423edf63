#include "engine/MultitouchManager.h"

#include "engine/FrameQueue.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "platform/Streams.h"

#include <atomic>
#include <cmath>

namespace brimlow {

using namespace Qt::StringLiterals;
using platform::Instant;
using platform::Platform;
using platform::printLine;

namespace {

constexpr double tapDurationLimit = 0.5;  // seconds; longer is a hold
constexpr double tapMovementLimit = 0.05; // of the pad's width or height; further is a drag

// The states that count. Ours delivers 3, 4 and 7; frameworks elsewhere also use 5 and 6.
bool isTouching(std::int32_t state) {
    return state == 3 || state == 4 || state == 6;
}
bool isEnded(std::int32_t state) {
    return state == 5 || state == 7;
}

/// What the framework's callback can reach: it is handed no context.
struct Delivery {
    FrameQueue frames;
    std::atomic<platform::DispatchSource*> wakeMainThread = nullptr;
    MultitouchManager* shared = nullptr; // main thread only; null when the manager is gone
};

Delivery& delivery() {
    static Delivery instance;
    return instance;
}

} // namespace

MultitouchManager::MultitouchManager() = default;

MultitouchManager::~MultitouchManager() {
    if (device_)
        MultitouchFramework::load().deviceStop(device_);
    if (delivery().shared == this) {
        delivery().shared = nullptr;
        delivery().wakeMainThread = nullptr;
    }
}

void MultitouchManager::start() {
    const auto& framework = MultitouchFramework::load();
    if (!framework.loaded()) {
        printLine(u"MultitouchManager: framework symbols not loaded"_s);
        return;
    }
    MTDeviceRef device = framework.deviceCreateDefault();
    if (!device) {
        printLine(u"MultitouchManager: no multitouch device available"_s);
        return;
    }
    device_ = device;
    while (delivery().frames.pop([](auto) {})) {
        // what an earlier manager left behind
    }
    frameSource_ = Platform::current().mainQueue.makeSource(&processQueuedFrames);
    delivery().shared = this;
    delivery().wakeMainThread = frameSource_.get();
    framework.registerContactFrameCallback(device_, &contactFrameCallback);
    framework.deviceStart(device_, 0);
    printLine(u"MultitouchManager: started — listening for global trackpad touches"_s);
}

std::int32_t MultitouchManager::contactFrameCallback(std::int32_t /*device*/,
                                                     const MTFinger* fingers, std::int32_t count,
                                                     double /*timestamp*/, std::int32_t /*frame*/) {
    const bool any = fingers && count > 0;
    delivery().frames.push({fingers, any ? static_cast<std::size_t>(count) : 0});
    if (auto* source = delivery().wakeMainThread.load(std::memory_order_acquire))
        source->raise();
    return 0;
}

void MultitouchManager::processQueuedFrames() {
    const auto process = [](std::span<const MTFinger> fingers) {
        if (auto* manager = delivery().shared)
            manager->processFingers(fingers);
    };
    while (delivery().frames.pop(process)) {
        // one frame after the other
    }
}

void MultitouchManager::processFingers(std::span<const MTFinger> fingers) {
    const Instant now = Platform::current().clock.now();
    ++frame_;
    live_.clear();
    for (const auto& finger : fingers) {
        if (isTouching(finger.state)) {
            touched(finger, now);
            live_.push_back({finger.identifier, finger.normalized.pos.x, finger.normalized.pos.y});
        } else if (isEnded(finger.state)) {
            ended(finger, now);
        } else if (auto found = activeTouches_.find(finger.identifier);
                   found != activeTouches_.end()) {
            found->second.seenInFrame = frame_; // no state of ours, but listed
        }
    }
    std::erase_if(activeTouches_,
                  [this](const auto& entry) { return entry.second.seenInFrame != frame_; });
    liveTouches = live_;
}

void MultitouchManager::touched(const MTFinger& finger, Instant now) {
    const double size = finger.size;
    const double majorAxis = finger.majorAxis;
    const auto [entry, isNew] = activeTouches_.try_emplace(
        finger.identifier, TouchTracking{now, finger.normalized.pos.x, finger.normalized.pos.y,
                                         size, majorAxis, frame_});
    auto& touch = entry->second;
    touch.seenInFrame = frame_;
    if (size > touch.maxSize)
        touch.maxSize = size;
    if (majorAxis > touch.maxMajorAxis)
        touch.maxMajorAxis = majorAxis;
}

void MultitouchManager::ended(const MTFinger& finger, Instant now) {
    const auto found = activeTouches_.find(finger.identifier);
    if (found == activeTouches_.end())
        return;
    const TouchTracking touch = found->second;
    activeTouches_.erase(found);

    const double x = finger.normalized.pos.x;
    const double y = finger.normalized.pos.y;
    const double duration = now - touch.beganAt;
    const double movement = std::hypot(x - touch.beganX, y - touch.beganY);
    if (!(duration < tapDurationLimit && movement < tapMovementLimit))
        return;
    const TapInfo tap{x, y, duration, std::fmax(touch.maxSize, finger.size),
                      std::fmax(touch.maxMajorAxis, finger.majorAxis)};
    lastTap = tap;
    if (onTap)
        onTap(tap);
}

} // namespace brimlow
