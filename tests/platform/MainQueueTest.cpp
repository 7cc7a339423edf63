#include "platform/QtMainQueue.h"
#include "platform/SystemClock.h"
#include "platform/simulated/VirtualTime.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <string>
#include <thread>

namespace brimlow::test {
namespace {

using namespace platform;

/// The same script on the real queue and on the virtual one: both have to agree.
std::string playScript(MainQueue& queue, const std::function<void()>& waitAMoment) {
    std::string order;
    int ticks = 0;
    queue.after(0.03, [&] { order += '3'; });
    queue.after(0.01, [&] { order += '2'; });
    queue.after(0, [&] { order += '1'; });
    queue.async([&] {
        order += 'a';
        queue.async([&] { order += 'b'; });
        order += 'A';
    });
    auto timer = queue.every(0.05, [&] { order += "t" + std::to_string(++ticks); });
    const auto source = queue.makeSource([&] { order += 's'; });
    source->raise();
    source->raise();
    waitAMoment(); // 0.12 s
    std::thread([&] { source->raise(); }).join();
    timer.reset();
    waitAMoment();
    return order;
}

TEST(MainQueue, RealAndVirtualAgree) {
    VirtualTime time;
    const auto expected = playScript(time, [&] { time.advance(0.12); });
    EXPECT_EQ(expected, "1aAsb23t1t2s");
    EXPECT_EQ(time.pending(), 0U);

    int argc = 0;
    const QCoreApplication application(argc, nullptr);
    QtMainQueue queue;
    const SystemClock clock;
    const auto seen = playScript(queue, [&] {
        bool over = false;
        queue.after(0.12, [&] { over = true; });
        const auto begin = clock.now();
        while (!over)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        EXPECT_GE(clock.now() - begin, 0.12);
    });
    // Where a source stands among work that is due at the same moment is left open.
    std::string real = seen;
    real.erase(real.find('s'), 1);
    EXPECT_EQ(real, "1aAb23t1t2s");
}

} // namespace
} // namespace brimlow::test
