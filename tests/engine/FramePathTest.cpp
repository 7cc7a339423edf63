// The path of a contact frame, on two threads and on the heap.

#include "engine/FrameQueue.h"
#include "engine/MultitouchManager.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/FakeTrackpad.h"
#include "tests/support/TestPlatform.h"

#include <gtest/gtest.h>

#include <thread>

namespace brimlow::test {
namespace {

TEST(FramePath, AllocatesNothingOnceWarm) {
    TestPlatform world;
    FakeTrackpad pad(world.time);
    MultitouchManager manager;
    manager.start();
    FrameQueue queue;

    const auto playFiveFingers = [&](std::int32_t firstId) {
        MTFinger fingers[5];
        for (std::int32_t i = 0; i < 5; ++i)
            fingers[i].identifier = firstId + i;
        for (const std::int32_t state : {3, 4, 4, 7}) {
            for (auto& finger : fingers)
                finger.state = state;
            queue.push(fingers);
        }
        queue.push({});
        while (queue.pop([&](std::span<const MTFinger> frame) { manager.processFingers(frame); })) {
            // as the main thread does
        }
    };
    for (int round = 0; round < 10; ++round)
        playFiveFingers(round * 5);
    const long before = allocationsOfThisThread();
    for (int round = 10; round < 1000; ++round)
        playFiveFingers(round * 5);
    EXPECT_EQ(allocationsOfThisThread() - before, 0);
}

TEST(FramePath, KeepsOrderAndContentBetweenTwoThreads) {
    constexpr int frames = 200'000;
    FrameQueue queue;
    std::thread delivery([&queue] {
        MTFinger fingers[8];
        for (int i = 0; i < frames; ++i) {
            for (auto& finger : fingers)
                finger.frame = i;
            queue.push(std::span(fingers, static_cast<std::size_t>(i % 9)));
        }
    });
    int seen = 0;
    while (seen < frames) {
        queue.pop([&](std::span<const MTFinger> frame) {
            ASSERT_EQ(frame.size(), static_cast<std::size_t>(seen % 9));
            for (const auto& finger : frame)
                ASSERT_EQ(finger.frame, seen);
            ++seen;
        });
    }
    delivery.join();
}

} // namespace
} // namespace brimlow::test
