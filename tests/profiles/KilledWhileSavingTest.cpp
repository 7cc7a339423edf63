#include "profiles/TapPositionMappings.h"
#include "tests/support/TestPlatform.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <random>
#include <thread>

namespace brimlow {

using namespace Qt::StringLiterals;

namespace {

/// Counts the active profile's name up from where it stands, and tells each number once it is
/// saved. Never returns.
[[noreturn]] void saveUntilKilled(const QString& path, int acknowledge) {
    test::CapturedLog log;
    platform::NSUserDefaults defaults(path, log);
    TapPositionMappings store(10, defaults);
    const QUuid id = store.activeProfileId;
    for (int number = store.activeProfile()->name.toInt() + 1;; ++number) {
        store.renameProfile(id, QString::number(number));
        if (write(acknowledge, &number, sizeof number) != sizeof number)
            _exit(1);
    }
}

/// Lets a process save once and for `moment` more, and kills it. Returns the last number it told.
int lastAcknowledged(const QString& path, std::chrono::microseconds moment) {
    int ends[2];
    EXPECT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0)
        saveUntilKilled(path, ends[1]);
    close(ends[1]);
    int last = 0;
    EXPECT_EQ(read(ends[0], &last, sizeof last), sizeof last);
    std::this_thread::sleep_for(moment);
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status)) << "the saver gave up by itself";
    while (read(ends[0], &last, sizeof last) == sizeof last) {
    }
    close(ends[0]);
    return last;
}

} // namespace

TEST(KilledWhileSaving, TheFileIsWholeAndNoOlderThanTheLastSave) {
    const test::TestPlatform world;
    const QString path = world.defaults.path();
    std::mt19937 random(20260102);
    std::uniform_int_distribution<int> microseconds(0, 5'000);
    int saved = 0;
    for (int round = 0; round < 200; ++round) {
        const int told = lastAcknowledged(path, std::chrono::microseconds(microseconds(random)));
        saved = std::max(saved, told);
        test::CapturedLog log;
        platform::NSUserDefaults defaults(path, log);
        const TapPositionMappings store(10, defaults);
        const int found = store.activeProfile()->name.toInt();
        ASSERT_TRUE(log.take().isEmpty()) << "round " << round;
        ASSERT_GE(found, saved) << "round " << round;
        ASSERT_LE(found, saved + 1) << "round " << round;
        ASSERT_EQ(store.activeProfile()->bindings.size(), 10U);
        saved = found;
    }
}

} // namespace brimlow
