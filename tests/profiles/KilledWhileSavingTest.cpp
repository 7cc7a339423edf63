#include "profiles/TapPositionMappings.h"
#include "tests/support/TestPlatform.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <random>
#include <thread>

namespace brimlow {

using namespace Qt::StringLiterals;

namespace {

/// Counts the active profile's name up from where it stands, and tells each number once it is
/// saved. Never returns.
[[noreturn]] void saveUntilKilled(const QString& path, std::atomic<int>& told) {
    test::CapturedLog log;
    platform::NSUserDefaults defaults(path, log);
    TapPositionMappings store(10, defaults);
    const QUuid id = store.activeProfileId;
    for (int number = store.activeProfile()->name.toInt() + 1;; ++number) {
        store.renameProfile(id, QString::number(number));
        told = number;
    }
}

/// Lets a process save once and for `moment` more, and kills it.
void saveAndKill(const QString& path, std::atomic<int>& told, std::chrono::microseconds moment) {
    const int before = told;
    const pid_t child = fork();
    if (child == 0)
        saveUntilKilled(path, told);
    while (told == before && waitpid(child, nullptr, WNOHANG) == 0)
        std::this_thread::yield();
    std::this_thread::sleep_for(moment);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
}

} // namespace

TEST(KilledWhileSaving, TheFileIsWholeAndNoOlderThanTheLastSave) {
    const test::TestPlatform world;
    const QString path = world.defaults.path();
    std::mt19937 random(20260102);
    std::uniform_int_distribution<int> microseconds(0, 5'000);
    void* shared = mmap(nullptr, sizeof(std::atomic<int>), PROT_READ | PROT_WRITE,
                        MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    auto& told = *new (shared) std::atomic<int>(0);
    for (int round = 0; round < 200; ++round) {
        const int before = told;
        saveAndKill(path, told, std::chrono::microseconds(microseconds(random)));
        ASSERT_GT(told, before) << "round " << round;
        test::CapturedLog log;
        platform::NSUserDefaults defaults(path, log);
        const TapPositionMappings store(10, defaults);
        const int found = store.activeProfile()->name.toInt();
        ASSERT_TRUE(log.take().isEmpty()) << "round " << round;
        ASSERT_TRUE(found == told || found == told + 1) << "round " << round;
        ASSERT_EQ(store.activeProfile()->bindings.size(), 10U);
    }
}

} // namespace brimlow
