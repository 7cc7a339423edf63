// The main thread's share of a contact frame: five fingers that stay on the pad.

#include "engine/FrameQueue.h"
#include "engine/MultitouchManager.h"
#include "tests/support/TestPlatform.h"

#include <benchmark/benchmark.h>

namespace brimlow {
namespace {

void processFrameOfFiveContacts(benchmark::State& state) {
    const test::TestPlatform world;
    MultitouchManager manager;
    FrameQueue queue;
    MTFinger fingers[5];
    for (int i = 0; i < 5; ++i) {
        fingers[i].identifier = i;
        fingers[i].state = MTContactTouching;
    }
    while (state.KeepRunning()) {
        fingers[0].normalized.pos.x += 1e-6F;
        queue.push(fingers);
        queue.pop([&](std::span<const MTFinger> frame) { manager.processFingers(frame); });
    }
}
BENCHMARK(processFrameOfFiveContacts);

} // namespace
} // namespace brimlow
