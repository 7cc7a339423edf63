#include "Probe.h"
#include "tools/mocked/MockedPad.h"
#include "tools/recording/PadScript.h"
#include "tools/recording/RecordingWriter.h"

#include <QDir>
#include <QTemporaryFile>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <optional>

namespace brimlow::platform {

namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

std::vector<input_event> press() {
    std::vector<input_event> events(4);
    events[0].type = events[2].type = EV_KEY;
    events[0].code = events[2].code = BTN_LEFT;
    events[0].value = 1;
    return events;
}

class Reading : public testing::Test {
protected:
    QProcessEnvironment environment(const QString& touchDevice = {}) const {
        QProcessEnvironment variables;
        for (const auto& [name, value] : input_.environment())
            variables.insert(QString::fromStdString(name), QString::fromStdString(value));
        variables.insert(QStringLiteral("BRIMLOW_TOUCH_DEVICE"), touchDevice);
        return variables;
    }

    static void tap(MockedPad& pad) { pad.play(PadScript().tap({0.9, 0.4}, 0.02, 0.04).events()); }

    static void expectTap(Probe& probe) {
        const auto lines = probe.upTo("frame");
        ASSERT_GE(lines.size(), 4U);
        EXPECT_THAT(lines.front(), AllOf(StartsWith("frame "), HasSubstr(":3@0.90,0.40")));
        EXPECT_THAT(lines[lines.size() - 2], HasSubstr(":7@0.90,0.40"));
    }

    /// Writes a recording and gives its file's name.
    QString record(const PadScript& script) {
        EXPECT_TRUE(recording_.open());
        recording_.write(writeRecording({script.pad(), script.events()}).c_str());
        recording_.close();
        return recording_.fileName();
    }

    MockedInput input_;
    QTemporaryFile recording_{QDir::tempPath() + QStringLiteral("/brimlow-XXXXXX.evemu")};
};

TEST_F(Reading, DeliversThePadsThatAreThereAndThoseThatCome) {
    std::optional<MockedPad> first(std::in_place, input_, ordinaryTrackpad(), 5);
    Probe probe(environment());
    EXPECT_EQ(probe.next(), "device");
    tap(*first);
    expectTap(probe);
    MockedPad second(input_, ordinaryTrackpad(), 6);
    tap(second);
    expectTap(probe);
    const auto touch = PadScript().hold({0.5, 0.5}, 0, 0.05).events();
    first->play(std::span(touch).first(13)); // up to the first frame's report
    EXPECT_THAT(probe.next(), HasSubstr(":3@0.50,0.50"));
    first.reset();
    EXPECT_THAT(probe.upTo("gone"), ElementsAre("frame", "gone"));
    first.emplace(input_, ordinaryTrackpad(), 7);
    tap(*first);
    expectTap(probe);
}

TEST_F(Reading, HearsTheLeftButtonOfEveryPointerAndAfterTheDevicesStop) {
    MockedPad pad(input_, ordinaryTrackpad(), 5);
    Probe probe(environment());
    EXPECT_EQ(probe.next(), "device");
    {
        MockedPad mouse(input_, ordinaryMouse(), 6);
        mouse.write(press());
        EXPECT_EQ(probe.next(), "left");
    }
    EXPECT_EQ(probe.next(), "gone");
    const auto click = PadScript().click({0.5, 0.5}, 0, 0.06).events();
    pad.play(click);
    EXPECT_THAT(probe.upTo("frame"), Contains("left").Times(1));
    probe.ask("stop\n");
    EXPECT_EQ(probe.next(), "asked");
    pad.play(click);
    EXPECT_EQ(probe.next(), "left");
    EXPECT_EQ(probe.next(200), "(silent)");
}

TEST_F(Reading, ReadsOnlyTheNamedNodeAsATrackpad) {
    MockedPad other(input_, ordinaryTrackpad(), 5);
    MockedPad named(input_, ordinaryTrackpad(), 6);
    Probe probe(environment(QStringLiteral("/dev/input/event6")));
    EXPECT_EQ(probe.next(), "device");
    tap(other);
    EXPECT_EQ(probe.next(200), "(silent)");
    tap(named);
    expectTap(probe);
}

TEST_F(Reading, ReportsWhatItMayNotReadOnceAndReadsItWhenItMay) {
    MockedPad pad(input_, ordinaryTrackpad(), 5);
    pad.setPermissions(0);
    const auto nobody = geteuid() == 0 ? QStringList(QStringLiteral("65534")) : QStringList();
    Probe probe(environment(), nobody);
    EXPECT_EQ(probe.next(), "device");
    for (int time = 0; time < 2; ++time) {
        probe.ask();
        EXPECT_THAT(probe.upTo("asked"), ElementsAre("unreadable /dev/input/event5", "asked"));
        pad.announceChange();
        for (const char* state : {"away\n", "back\n"}) {
            probe.ask(state);
            probe.upTo("asked");
        }
    }
    pad.setPermissions(0666);
    probe.ask();
    EXPECT_EQ(probe.next(), "asked");
    tap(pad);
    expectTap(probe);
    EXPECT_EQ(probe.finish(),
              "Brimlow: cannot read the trackpad \"Brimlow Ordinary Touchpad\" "
              "(/dev/input/event5): Permission denied; a udev rule that tags pointers with "
              "\"uaccess\" (70-brimlow.rules) lets the user at the screen read them\n");
}

TEST_F(Reading, FindsNoDeviceWhereThereIsNoInput) {
    Probe probe(environment());
    EXPECT_EQ(probe.next(), "no device");
    probe.ask();
    EXPECT_EQ(probe.next(), "asked");
    EXPECT_EQ(probe.finish(), "");
}

TEST_F(Reading, KeepsTheTimesOfARecordingAndThenIsSilent) {
    const auto file = record(PadScript().tap({0.9, 0.4}, 0.2, 0.04).click({0.5, 0.5}, 0.6, 0.06));
    MockedPad mouse(input_, ordinaryMouse(), 6);
    Probe probe(environment(file));
    EXPECT_EQ(probe.next(), "device");
    const auto started = std::chrono::steady_clock::now();
    EXPECT_THAT(probe.next(), HasSubstr("1:3@0.90,0.40"));
    const auto touched = std::chrono::steady_clock::now();
    EXPECT_EQ(probe.upTo("left").back(), "left");
    const auto pressed = std::chrono::steady_clock::now();
    using Seconds = std::chrono::duration<double>;
    EXPECT_NEAR(Seconds(touched - started).count(), 0.2, 0.1);
    EXPECT_NEAR(Seconds(pressed - touched).count(), 0.424, 0.1);
    EXPECT_EQ(probe.upTo("frame").back(), "frame");
    mouse.write(press()); // nobody but the recording is heard
    EXPECT_EQ(probe.next(200), "(silent)");
}

TEST_F(Reading, HasNoDeviceOpenWhileTheSessionIsInactive) {
    MockedPad refused(input_, ordinaryTrackpad(), 4);
    refused.setPermissions(0);
    MockedPad pad(input_, ordinaryTrackpad(), 5);
    pad.setPermissions(0666);
    MockedPad mouse(input_, ordinaryMouse(), 6);
    mouse.setPermissions(0666);
    const auto nobody = geteuid() == 0 ? QStringList(QStringLiteral("65534")) : QStringList();
    Probe probe(environment(), nobody);
    EXPECT_EQ(probe.next(), "device");
    const auto touch = PadScript().hold({0.5, 0.5}, 0, 0.05).events();
    pad.play(std::span(touch).first(13)); // up to the first frame's report
    EXPECT_THAT(probe.next(), HasSubstr(":3@0.50,0.50"));
    probe.ask("away\n");
    EXPECT_THAT(probe.upTo("asked"), ElementsAre("frame", "unreadable /dev/input/event4", "asked"));
    refused.setPermissions(0666);
    MockedPad late(input_, ordinaryTrackpad(), 7);
    late.setPermissions(0666);
    pad.playUnheard(PadScript().tap({0.5, 0.5}, 0.02, 0.04).events());
    mouse.playUnheard(press());
    probe.ask();
    EXPECT_THAT(probe.upTo("asked"), ElementsAre("unreadable /dev/input/event4", "asked"));
    probe.ask("back\n");
    EXPECT_EQ(probe.next(), "asked");
    for (MockedPad* each : {&refused, &pad, &late}) {
        tap(*each);
        expectTap(probe);
    }
    mouse.write(press());
    EXPECT_EQ(probe.next(), "left");
}

TEST_F(Reading, EndsTheTouchesOfARecordingWhenTheSessionBecomesInactive) {
    Probe probe(
        environment(record(PadScript().hold({0.9, 0.4}, 0.1, 0.4).tap({0.5, 0.5}, 0.9, 0.04))));
    EXPECT_EQ(probe.next(), "device");
    EXPECT_THAT(probe.next(), HasSubstr(":3@0.90,0.40"));
    probe.ask("away\n");
    const auto lines = probe.upTo("asked");
    ASSERT_GE(lines.size(), 2U);
    EXPECT_EQ(lines[lines.size() - 2], "frame");
    probe.ask("back\n"); // while it still touches
    EXPECT_EQ(probe.next(), "asked");
    EXPECT_THAT(probe.next(), HasSubstr(":3@0.50,0.50"));
}

} // namespace

} // namespace brimlow::platform
