#pragma once

#include "tools/recording/PadComposer.h"

namespace brimlow::platform {

// Shares of the pressure range, as recorded pads show them.
constexpr double tapPressure = 0.27;
constexpr double clickPressure = 0.42;
constexpr double palmPressure = 0.75;

/// Seconds from one frame of a touched pad to the next.
constexpr double frameInterval = 0.008;

/// A buttonpad of 100 × 62 mm with five slots and pressure, which reports no contact width.
TrackpadDescription ordinaryTrackpad();

/// One finger from touch-down to lift-off, moving evenly. Seconds from the script's start.
struct ScriptedFinger {
    PadPoint from;
    PadPoint to;
    double begin = 0;
    double end = 0;
    double pressure = 0; // share of the range at its height
    bool clicks = false; // pushes the pad down for the middle third
};

/// Composes the events that a kernel sends for gestures on a pad with slots and pressure, also for
/// gestures that overlap: frames every 8 ms while anything touches, with the single-touch axes and
/// finger-count keys that the kernel adds. The same script gives the same events, jitter included.
///
/// All times are seconds from the script's start.
class PadScript {
public:
    explicit PadScript(TrackpadDescription pad = ordinaryTrackpad());

    /// A light touch in one place.
    PadScript& tap(PadPoint point, double at, double duration = 0.09);
    /// One finger resting in one place.
    PadScript& hold(PadPoint point, double at, double duration);
    /// One finger moving evenly.
    PadScript& drag(PadPoint from, PadPoint to, double at, double duration);
    /// Two fingers side by side, moving evenly.
    PadScript& scroll(PadPoint from, PadPoint to, double at, double duration);
    /// A heel of the hand: one contact, pressed as no fingertip presses.
    PadScript& palm(PadPoint point, double at, double duration);
    /// A touch that pushes the pad down, a third into it.
    PadScript& click(PadPoint point, double at, double duration = 0.18);

    const TrackpadDescription& pad() const { return pad_; }

    /// In order of time, each frame ended by SYN_REPORT; an empty frame at 0 keeps the pause before
    /// the first gesture when the events are played.
    std::vector<input_event> events() const;

private:
    PadScript& add(const ScriptedFinger& finger);
    std::vector<PadFinger> fingersAt(double time) const;

    TrackpadDescription pad_;
    std::vector<ScriptedFinger> fingers_;
};

} // namespace brimlow::platform
