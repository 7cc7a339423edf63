#include "tools/trackpad/LivePad.h"

#include "tools/recording/PadScript.h"

#include <algorithm>
#include <chrono>
#include <stdexcept>

namespace brimlow::trackpad {

using platform::PadFinger;

namespace {

constexpr int fewestFrames = 4; // 32 ms

const platform::TrackpadDescription& description() {
    static const auto pad = platform::ordinaryTrackpad();
    return pad;
}

/// Seconds of the clock by which kernel events are stamped.
double now() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

} // namespace

LivePad::LivePad(platform::MockedInput& input)
    : pad_(input, description(), 0), composer_(description()) {
    frames_.setTimerType(Qt::PreciseTimer);
    frames_.setInterval(static_cast<int>(platform::frameInterval * 1000));
    connect(&frames_, &QTimer::timeout, this, &LivePad::sendFrame);
}

void LivePad::setFingers(const std::vector<PadFinger>& fingers) {
    for (Touch& each : touches_) {
        const auto found = std::ranges::find(fingers, each.finger.id, &PadFinger::id);
        each.lifted = found == fingers.end();
        if (!each.lifted)
            each.finger = *found;
    }
    for (const PadFinger& each : fingers) {
        const bool known = std::ranges::any_of(
            touches_, [&](const Touch& touch) { return touch.finger.id == each.id; });
        if (!known)
            touches_.push_back({each});
    }
    if (!touches_.empty() && !frames_.isActive()) {
        sendFrame(); // of where it was put down, which may not be there any more in a moment
        frames_.start();
    }
}

void LivePad::sendFrame() {
    std::erase_if(touches_,
                  [](const Touch& each) { return each.lifted && each.frames >= fewestFrames; });
    std::vector<PadFinger> fingers;
    for (Touch& each : touches_) {
        fingers.push_back(each.finger);
        ++each.frames;
    }
    const auto events = composer_.compose(now(), fingers);
    if (!events.empty())
        write(events);
    if (touches_.empty())
        frames_.stop();
}

void LivePad::write(const std::vector<input_event>& events) {
    try {
        pad_.write(events);
    } catch (const std::runtime_error&) { // must not pass through Qt's loop
        touches_.clear();
        Q_EMIT unheard();
    }
}

} // namespace brimlow::trackpad
