#include "engine/MultitouchManager.h"

#include "tests/support/FakeTrackpad.h"
#include "tests/support/TestPlatform.h"

#include <gtest/gtest.h>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;

struct Taps : testing::Test {
    TestPlatform world;
    FakeTrackpad pad{world.time};
    MultitouchManager manager;
    std::vector<TapInfo> taps;

    void SetUp() override {
        manager.onTap = [this](const TapInfo& tap) {
            EXPECT_EQ(manager.lastTap.get(), tap) << "published before it is handed on";
            taps.push_back(tap);
        };
        manager.start();
        ASSERT_EQ(world.log.take().last(), u"MultitouchManager: started — listening for global "
                                           u"trackpad touches"_s);
    }
};

TEST_F(Taps, EndStrictlyBelowTheLimitsOfTimeAndMovement) {
    struct Row {
        double duration;
        double drift;
        bool isTap;
    };
    // A drift is a difference of 32-bit floats: the rows keep away from the limit by one part in
    // a thousand.
    for (const Row& row :
         {Row{0.0, 0, true}, Row{0.499, 0, true}, Row{0.5, 0, false}, Row{0.1, 0.04995, true},
          Row{0.1, 0.05005, false}, Row{0.1, -0.05005, false}}) {
        taps.clear();
        pad.tap(0.5, 0.25, {.duration = row.duration, .drift = row.drift});
        EXPECT_EQ(taps.size(), row.isTap ? 1U : 0U) << row.duration << " s, " << row.drift;
        EXPECT_TRUE(manager.liveTouches->empty());
    }
}

TEST_F(Taps, CarryTheEndPositionAndTheLargestValuesOfAllFrames) {
    pad.frame({{.state = 3, .x = 0.5, .y = 0.25, .size = 0.25, .majorAxis = 6}});
    world.time.advance(0.0625);
    pad.frame({{.state = 4, .x = 0.5, .y = 0.25, .size = 0.75, .majorAxis = 5}});
    world.time.advance(0.0625);
    pad.frame({{.state = 7, .x = 0.53125, .y = 0.25, .size = 0.5, .majorAxis = 9}});
    ASSERT_EQ(taps.size(), 1U);
    EXPECT_EQ(taps[0], (TapInfo{0.53125, 0.25, 0.125, 0.75, 9}));
}

TEST_F(Taps, StatesDecideWhatTouchesAndWhatEnds) {
    enum class Is { touching, ended, neither };
    const std::pair<int, Is> rows[] = {{2, Is::neither}, {3, Is::touching}, {4, Is::touching},
                                       {5, Is::ended},   {6, Is::touching}, {7, Is::ended},
                                       {8, Is::neither}};
    for (const auto& [state, is] : rows) {
        taps.clear();
        pad.frame({{.id = 7, .state = state}});
        EXPECT_EQ(manager.liveTouches->size(), is == Is::touching ? 1U : 0U) << state;
        EXPECT_TRUE(taps.empty()) << "nothing was touching before state " << state;
        pad.nullFrame();

        pad.frame({{.id = 7, .state = 3}});
        pad.frame({{.id = 7, .state = state}});
        EXPECT_EQ(taps.size(), is == Is::ended ? 1U : 0U) << state;
        // What was listed in whatever state is still followed; what ended is not.
        pad.frame({{.id = 7, .state = 7}});
        EXPECT_EQ(taps.size(), 1U) << state;
    }
}

TEST_F(Taps, OfSeveralFingersComeInTheirOrderAndWithoutThoseThatVanish) {
    pad.frame({{.id = 1, .state = 3, .x = 0.75}, {.id = 2, .state = 3, .x = 0.25}});
    EXPECT_EQ(manager.liveTouches.get(), (std::vector<LiveTouch>{{1, 0.75, 0.5}, {2, 0.25, 0.5}}));
    pad.frame({{.id = 2, .state = 7, .x = 0.25}, {.id = 1, .state = 7, .x = 0.75}});
    ASSERT_EQ(taps.size(), 2U);
    EXPECT_EQ(taps[0].x, 0.25);

    pad.frame({{.id = 3, .state = 3}, {.id = 4, .state = 3}});
    pad.frame({{.id = 3, .state = 4}});
    pad.frame({{.id = 3, .state = 7}, {.id = 4, .state = 7}});
    EXPECT_EQ(taps.size(), 3U) << "4 was not listed once";

    pad.frame({{.id = 5, .state = 3}});
    pad.nullFrame();
    EXPECT_TRUE(manager.liveTouches->empty());
}

TEST(MultitouchManager, FramesAfterItsEndGoNowhereAndTheNextOneStartsFresh) {
    TestPlatform world;
    FakeTrackpad pad(world.time);
    auto first = std::make_unique<MultitouchManager>();
    first->start();
    pad.frame({{.state = 3}});
    const int stopsBefore = pad.stopCount();
    first.reset();
    EXPECT_EQ(pad.stopCount(), stopsBefore + 1);
    EXPECT_FALSE(pad.frame({{.state = 7}}));

    MultitouchManager second;
    second.start();
    pad.frame({{.state = 7}});
    EXPECT_FALSE(second.lastTap->has_value()) << "the touch began in another life";
}

TEST(MultitouchManager, StaysIdleWithoutASymbolOrADevice) {
    // The image is loaded once per process, so each row runs in a fresh one.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const QString symbols = u"MultitouchManager: dlsym failed for one or more symbols"_s;
    for (const char* image :
         {"without-create", "without-register", "without-start", "without-stop"}) {
        const auto start = [&] {
            TestPlatform world;
            const FakeTrackpad pad(world.time, image);
            MultitouchManager().start();
            std::_Exit(
                world.log.take()
                != QStringList{symbols, u"MultitouchManager: framework symbols not loaded"_s});
        };
        EXPECT_EXIT(start(), testing::ExitedWithCode(0), "") << image;
    }
    TestPlatform world;
    FakeTrackpad pad(world.time);
    pad.setHasDevice(false);
    MultitouchManager().start();
    EXPECT_EQ(world.log.take().last(), u"MultitouchManager: no multitouch device available"_s);
}

} // namespace
} // namespace brimlow::test
