#include "bench/whole/Subject.h"
#include "bench/whole/Table.h"

#include <QElapsedTimer>

#include <stdexcept>
#include <thread>

namespace brimlow::bench {

using namespace Qt::StringLiterals;
using namespace platform;

namespace {

/// The events of one frame each.
std::vector<std::vector<input_event>> framesOf(const std::vector<input_event>& events) {
    std::vector<std::vector<input_event>> frames(1);
    for (const auto& event : events) {
        frames.back().push_back(event);
        if (event.type == EV_SYN && event.code == SYN_REPORT)
            frames.emplace_back();
    }
    frames.pop_back();
    return frames;
}

bool isLift(const std::vector<input_event>& frame) {
    for (const auto& event : frame) {
        if (event.type == EV_ABS && event.code == ABS_MT_TRACKING_ID && event.value < 0)
            return true;
    }
    return false;
}

} // namespace

void measureLatency(int taps) {
    using namespace std::chrono_literals;
    Subject subject;
    subject.start();
    subject.program().readFor(500);
    // The first default spot, which has no action: the decision is the last line of its chain.
    const auto frames = framesOf(PadScript().tap({0.02, 0.9}, 0, 0.05).events());
    std::vector<double> milliseconds;
    for (int i = 0; i < taps; ++i) {
        QElapsedTimer sinceLift;
        for (const auto& frame : frames) {
            subject.pad().write(frame);
            // From here on it is the kernel's: writing to a mocked node often takes a whole tick of
            // the scheduler, which no real device does.
            if (isLift(frame))
                sinceLift.start();
            else if (!sinceLift.isValid())
                std::this_thread::sleep_for(8ms);
        }
        if (subject.program().waitForLine(u"but no action set"_s, 1000).isNull())
            throw std::runtime_error("a tap came to no decision");
        milliseconds.push_back(static_cast<double>(sinceLift.nsecsElapsed()) / 1e6);
        std::this_thread::sleep_for(290ms); // the next one must not be too soon
    }
    report(u"kernel event to decision, median of %1 taps"_s.arg(taps),
           u"%1 ms"_s.arg(percentile(milliseconds, 0.5), 0, 'f', 3), u"at most 1 ms"_s);
    report(u"kernel event to decision, 99th percentile"_s,
           u"%1 ms"_s.arg(percentile(milliseconds, 0.99), 0, 'f', 3), u"at most 5 ms"_s);
}

} // namespace brimlow::bench
