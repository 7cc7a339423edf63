#include "profiles/PositionRecorder.h"

#include "platform/Format.h"
#include "platform/Platform.h"
#include "platform/Streams.h"

#include <algorithm>

namespace brimlow {

using namespace Qt::StringLiterals;
using platform::fixed;
using platform::Platform;

namespace {

void log(const QString& message) {
    platform::printLine(u"PositionRecorder: "_s + message);
}

} // namespace

void PositionRecorder::start(int countdown) {
    samplesNeeded = static_cast<int>(capturedSamples->size()) + 1;
    lastSample = std::nullopt;
    isComplete = false;
    isRecording = false;
    isCountingDown = true;
    countdownSeconds = std::max(countdown, 0);
    log(u"starting countdown ("_s + QString::number(countdownSeconds) + u"s) for sample #"_s
        + QString::number(samplesNeeded));
    countdownTimer_.reset();
    if (countdownSeconds != 0)
        startTimer();
    else
        beginCapture();
}

void PositionRecorder::startTimer() {
    auto tick = lifetime_.guard([this] { tickCountdown(); });
    // The tick may stop the timer: it takes its own turn, not the timer's.
    countdownTimer_ = Platform::current().mainQueue.every(
        1.0, [tick] { Platform::current().mainQueue.async(tick); });
}

void PositionRecorder::tickCountdown() {
    if (!isCountingDown)
        return; // a tick that was under way when the countdown was cancelled
    countdownSeconds = countdownSeconds - 1;
    if (countdownSeconds < 1) {
        countdownTimer_.reset();
        beginCapture();
    }
}

void PositionRecorder::beginCapture() {
    isCountingDown = false;
    isRecording = true;
    log(u"countdown finished — capturing "_s + QString::number(samplesNeeded) + u" samples now"_s);
}

bool PositionRecorder::captureTap(double x, double y) {
    if (isCountingDown) {
        log(u"ignoring tap during countdown"_s);
        return true;
    }
    if (!isRecording || isComplete)
        return false;
    auto samples = capturedSamples.get();
    samples.push_back({x, y});
    const auto count = static_cast<int>(samples.size());
    capturedSamples = std::move(samples);
    lastSample = TapSample{x, y};
    log(u"captured "_s + QString::number(count) + u'/' + QString::number(samplesNeeded) + u" — x="_s
        + fixed(x, 4) + u" y="_s + fixed(y, 4));
    if (count < samplesNeeded)
        return true;
    isComplete = true;
    isRecording = false;
    log(u"complete with "_s + QString::number(count) + u" samples"_s);
    return true;
}

void PositionRecorder::cancel() {
    stop();
    log(u"cancelled"_s);
}

void PositionRecorder::reset() {
    stop();
    lastSample = std::nullopt;
}

void PositionRecorder::stop() {
    countdownTimer_.reset();
    isRecording = false;
    isCountingDown = false;
    countdownSeconds = 0;
    isComplete = false;
    capturedSamples = std::vector<TapSample>();
}

} // namespace brimlow
