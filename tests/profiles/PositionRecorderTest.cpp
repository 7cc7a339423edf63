#include "profiles/PositionRecorder.h"

#include "tests/support/TestPlatform.h"

#include <gtest/gtest.h>

namespace brimlow {

using namespace Qt::StringLiterals;

namespace {

class Recorder : public testing::Test {
protected:
    std::string state() const {
        return std::string(recorder.isCountingDown ? "counting " : "")
               + (recorder.isRecording ? "recording " : "")
               + (recorder.isComplete ? "complete " : "")
               + std::to_string(recorder.countdownSeconds.get()) + " s "
               + std::to_string(recorder.capturedSamples->size()) + "/"
               + std::to_string(recorder.samplesNeeded.get());
    }

    test::TestPlatform world;
    PositionRecorder recorder;
};

} // namespace

TEST_F(Recorder, CountsDownThenCapturesOneTap) {
    EXPECT_EQ(state(), "0 s 0/3");
    recorder.start(2);
    world.time.advance(0.999);
    EXPECT_EQ(state(), "counting 2 s 0/1");
    world.time.advance(0.001);
    EXPECT_EQ(state(), "counting 1 s 0/1");
    EXPECT_TRUE(recorder.captureTap(0.9, 0.9));
    world.time.advance(1.0);
    EXPECT_EQ(state(), "recording 0 s 0/1");
    EXPECT_TRUE(recorder.captureTap(0.03125, 0.5));
    EXPECT_EQ(recorder.lastSample.get(), (TapSample{0.03125, 0.5}));
    EXPECT_FALSE(recorder.captureTap(0.5, 0.5));
    world.time.advance(1.0);
    EXPECT_EQ(state(), "complete 0 s 1/1");
    EXPECT_EQ(world.time.pending(), 0U); // the timer is gone
    EXPECT_EQ(world.log.take(platform::Stream::output),
              (QStringList{u"PositionRecorder: starting countdown (2s) for sample #1"_s,
                           u"PositionRecorder: ignoring tap during countdown"_s,
                           u"PositionRecorder: countdown finished — capturing 1 samples now"_s,
                           u"PositionRecorder: captured 1/1 — x=0.0312 y=0.5000"_s,
                           u"PositionRecorder: complete with 1 samples"_s}));
}

TEST_F(Recorder, ASecondStartKeepsWhatIsThereAndReplacesTheTimer) {
    recorder.start(-2); // at once
    EXPECT_EQ(state(), "recording 0 s 0/1");
    recorder.captureTap(0.1, 0.1);
    recorder.start(2);
    EXPECT_EQ(state(), "counting 2 s 1/2");
    EXPECT_FALSE(recorder.lastSample.get());
    world.time.advance(0.5);
    recorder.start(2);
    world.time.advance(0.5); // the first timer would have fired
    EXPECT_EQ(state(), "counting 2 s 1/2");
    world.time.advance(1.5);
    EXPECT_TRUE(recorder.captureTap(0.2, 0.2));
    EXPECT_EQ(state(), "complete 0 s 2/2");
}

TEST_F(Recorder, CancelAndResetLeaveItIdle) {
    recorder.start(0);
    recorder.captureTap(0.1, 0.1);
    recorder.cancel();
    EXPECT_EQ(world.log.take().last(), u"PositionRecorder: cancelled"_s);
    EXPECT_EQ(state(), "0 s 0/1");
    EXPECT_TRUE(recorder.lastSample.get());
    EXPECT_FALSE(recorder.captureTap(0.1, 0.1));
    recorder.reset();
    EXPECT_FALSE(recorder.lastSample.get());
    EXPECT_EQ(world.log.take(), QStringList());
}

TEST_F(Recorder, ATickOnItsWayFindsNothingToDo) {
    recorder.start(1);
    // Queued behind the timer's firing, so it runs between that and the tick it hands over.
    world.time.after(1.0, [this] { recorder.cancel(); });
    world.time.advance(1.0);
    EXPECT_EQ(state(), "0 s 0/1");

    auto shortLived = std::make_unique<PositionRecorder>();
    shortLived->start(1);
    world.time.after(1.0, [&] { shortLived.reset(); });
    world.time.advance(2.0);
    EXPECT_EQ(world.time.pending(), 0U);
}

} // namespace brimlow
