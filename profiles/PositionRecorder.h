#pragma once

#include "platform/MainQueue.h"
#include "platform/Observable.h"
#include "profiles/TapSample.h"

#include <memory>
#include <optional>
#include <vector>

namespace brimlow {

/// Captures positions for a binding: counts down while the hand moves to the trackpad, then takes
/// the taps that it is handed. Each start asks for one sample more than there are. At most one of
/// the three flags is true; none is when idle. Main thread only.
class PositionRecorder : public platform::ObservableObject {
public:
    platform::Published<bool> isCountingDown{*this, false};
    platform::Published<bool> isRecording{*this, false};
    platform::Published<bool> isComplete{*this, false};
    platform::Published<int> countdownSeconds{*this, 0};
    platform::Published<int> samplesNeeded{*this, 3};
    platform::Published<std::vector<TapSample>> capturedSamples{*this}; // in order
    platform::Published<std::optional<TapSample>> lastSample{*this};

    /// Records after `countdown` seconds, at once if that is 0 or less. Keeps what was captured.
    void start(int countdown);

    /// Whether the tap was meant for the recorder; during the countdown it is and goes nowhere.
    bool captureTap(double x, double y);

    /// Drops what was captured; lastSample stays.
    void cancel();
    /// The same, lastSample included, without a line in the log.
    void reset();

private:
    void startTimer();
    void tickCountdown();
    void beginCapture();
    void stop();

    std::unique_ptr<platform::RepeatingTimer> countdownTimer_;
    platform::Lifetime lifetime_;
};

} // namespace brimlow
