// What one kernel frame of five moving contacts costs, from its events to the contacts.

#include "platform/linux/evdev/ContactFrames.h"
#include "platform/linux/evdev/PadFeed.h"
#include "tools/recording/PadScript.h"

#include <benchmark/benchmark.h>

#include <algorithm>

namespace brimlow::platform {

namespace {

std::vector<input_event> fiveFingersMoving() {
    PadScript script;
    for (int finger = 0; finger < 5; ++finger) {
        const double x = 0.1 + 0.15 * finger;
        script.drag({x, 0.2}, {x + 0.2, 0.8}, 0.01, 10);
    }
    return script.events();
}

std::int64_t framesIn(const std::vector<input_event>& events) {
    return std::count_if(events.begin(), events.end(), [](const input_event& event) {
        return event.type == EV_SYN && event.code == SYN_REPORT;
    });
}

void decodeFiveContacts(benchmark::State& state) {
    const auto events = fiveFingersMoving();
    ContactIdentities identities;
    TouchDecoder decoder(ordinaryTrackpad(), identities);
    while (state.KeepRunning()) {
        for (const input_event& event : events)
            benchmark::DoNotOptimize(decoder.feed(event));
    }
    state.SetItemsProcessed(state.iterations() * framesIn(events));
}

void deliverFiveContacts(benchmark::State& state) {
    const auto events = fiveFingersMoving();
    ContactIdentities identities;
    ContactFrames frames([](std::span<const MTFinger> fingers, double, std::int32_t) {
        benchmark::DoNotOptimize(fingers.data());
    });
    PadFeed feed(ordinaryTrackpad(), identities, frames);
    while (state.KeepRunning()) {
        for (const input_event& event : events)
            feed.feed(event);
    }
    state.SetItemsProcessed(state.iterations() * framesIn(events));
}

BENCHMARK(decodeFiveContacts);
BENCHMARK(deliverFiveContacts);

} // namespace

} // namespace brimlow::platform
