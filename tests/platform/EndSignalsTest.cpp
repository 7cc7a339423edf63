#include "platform/EndSignals.h"

#include <QCoreApplication>

#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>

namespace brimlow::test {
namespace {

/// In a process of its own: asks twice, then ends as the event loop does.
[[noreturn]] void askTwice(unsigned int secondsBetween) {
    int argc = 0;
    const QCoreApplication application(argc, nullptr);
    const platform::EndSignals endSignals;
    std::raise(SIGTERM);
    ::sleep(secondsBetween);
    std::raise(SIGTERM);
    std::_Exit(QCoreApplication::exec());
}

TEST(EndSignals, ACopyOfTheFirstChangesNothingALaterOneEndsAtOnce) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(askTwice(0), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(askTwice(2), testing::KilledBySignal(SIGTERM), "");
}

} // namespace
} // namespace brimlow::test
