#include "tools/mocked/MockedPad.h"
#include "tools/recording/PadScript.h"
#include "tools/recording/RecordingWriter.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryFile>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <optional>

namespace brimlow::platform {

namespace {

using namespace Qt::StringLiterals;
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

/// A running touch-probe. It is told to end, and waited for, when this is destroyed.
class Probe {
public:
    /// `prefix` is a command that starts it, if need be.
    explicit Probe(const QProcessEnvironment& environment, QStringList prefix = {}) {
        prefix << QStringLiteral(BRIMLOW_TOUCH_PROBE) << QStringLiteral(BRIMLOW_TOUCH_IMAGE);
        const QString program = prefix.takeFirst();
        process_.setProcessEnvironment(environment);
        process_.start(program, prefix);
    }
    ~Probe() { finish(); }

    /// The next line it says, or "(silent)" when none comes in time.
    std::string next(int milliseconds = 10'000) {
        while (!process_.canReadLine()) {
            if (!process_.waitForReadyRead(milliseconds))
                return "(silent)";
        }
        return process_.readLine().chopped(1).toStdString();
    }
    /// All it says up to and including `last`, or up to the silence.
    std::vector<std::string> upTo(const std::string& last) {
        std::vector<std::string> lines;
        do
            lines.push_back(next());
        while (lines.back() != last && lines.back() != "(silent)");
        return lines;
    }

    /// Sends it a line; what it says up to "asked".
    std::vector<std::string> ask(const char* line = "unreadable?\n") {
        process_.write(line);
        process_.waitForBytesWritten();
        return upTo("asked");
    }

    /// Ends it; what it wrote on standard error.
    std::string finish() {
        process_.closeWriteChannel();
        process_.waitForFinished();
        return process_.readAllStandardError().toStdString();
    }

private:
    QProcess process_;
};

/// To root, too, permissions mean something then. It stays who it is, and so may start what lies in
/// its own folder.
QStringList withoutRootsPowers() {
    return geteuid() == 0 ? u"setpriv --bounding-set=-all --inh-caps=-all"_s.split(u' ')
                          : QStringList();
}

class Reading : public testing::Test {
protected:
    QProcessEnvironment environment(const QString& touchDevice = {}) const {
        QProcessEnvironment variables;
        for (const auto& [name, value] : input_.environment())
            variables.insert(QString::fromStdString(name), QString::fromStdString(value));
        variables.insert(u"BRIMLOW_TOUCH_DEVICE"_s, touchDevice);
        return variables;
    }

    static void expectTap(MockedPad& pad, Probe& probe) {
        pad.play(PadScript().tap({0.9, 0.4}, 0.02, 0.04).events());
        const auto lines = probe.upTo("frame");
        ASSERT_GE(lines.size(), 4U);
        EXPECT_THAT(lines.front(), AllOf(StartsWith("frame "), HasSubstr(":3@0.90,0.40")));
        EXPECT_THAT(lines[lines.size() - 2], HasSubstr(":7@0.90,0.40"));
    }
    static void expectTouch(MockedPad& pad, Probe& probe) {
        const auto events = PadScript().hold({0.5, 0.5}, 0, 0.05).events();
        pad.play(std::span(events).first(13)); // up to the first frame's report
        EXPECT_THAT(probe.next(), HasSubstr(":3@0.50,0.50"));
    }

    MockedInput input_;
};

TEST_F(Reading, DeliversThePadsThatAreThereAndThoseThatCome) {
    std::optional<MockedPad> first(std::in_place, input_, ordinaryTrackpad(), 5);
    MockedPad mouse(input_, ordinaryMouse(), 9);
    Probe probe(environment());
    EXPECT_EQ(probe.next(), "device");
    expectTap(*first, probe);
    MockedPad second(input_, ordinaryTrackpad(), 6);
    expectTap(second, probe);
    expectTouch(*first, probe);
    EXPECT_THAT(probe.ask("away\n"), ElementsAre("frame", "asked"));
    MockedPad late(input_, ordinaryTrackpad(), 8);
    mouse.playUnheard(press());
    EXPECT_THAT(probe.ask("back\n"), ElementsAre("asked"));
    expectTap(late, probe);

    expectTouch(*first, probe);
    first.reset();
    EXPECT_THAT(probe.upTo("gone"), ElementsAre("frame", "gone"));
    first.emplace(input_, ordinaryTrackpad(), 7);
    expectTap(*first, probe);
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
    pad.play(click);
    EXPECT_EQ(probe.next(), "left");
    EXPECT_EQ(probe.next(200), "(silent)");
}

TEST_F(Reading, ReadsOnlyTheNamedNodeAsATrackpad) {
    MockedPad other(input_, ordinaryTrackpad(), 5);
    MockedPad named(input_, ordinaryTrackpad(), 6);
    Probe probe(environment(u"/dev/input/event6"_s));
    EXPECT_EQ(probe.next(), "device");
    other.play(PadScript().tap({0.1, 0.1}, 0.02, 0.04).events());
    expectTap(named, probe);
}

TEST_F(Reading, ReportsWhatItMayNotReadOnceAndReadsItWhenItMay) {
    MockedPad pad(input_, ordinaryTrackpad(), 5);
    pad.setPermissions(0);
    Probe probe(environment(), withoutRootsPowers());
    EXPECT_EQ(probe.next(), "device");
    for (int time = 0; time < 2; ++time) {
        for (const char* state : {"away\n", "back\n"})
            EXPECT_THAT(probe.ask(state), ElementsAre("unreadable /dev/input/event5", "asked"));
        pad.announceChange();
    }
    pad.setPermissions(0666);
    EXPECT_THAT(probe.ask(), ElementsAre("asked"));
    expectTap(pad, probe);
    EXPECT_EQ(probe.finish(),
              "Brimlow: cannot read the trackpad \"Brimlow Ordinary Touchpad\" "
              "(/dev/input/event5): Permission denied; a udev rule that tags pointers with "
              "\"uaccess\" (70-brimlow.rules) lets the user at the screen read them\n");
}

TEST_F(Reading, FindsNoDeviceWhereThereIsNoInput) {
    Probe probe(environment());
    EXPECT_EQ(probe.next(), "no device");
    EXPECT_THAT(probe.ask(), ElementsAre("asked"));
    EXPECT_EQ(probe.finish(), "");
}

TEST_F(Reading, KeepsTheTimesOfARecordingAndThenIsSilent) {
    QTemporaryFile recording;
    ASSERT_TRUE(recording.open());
    const auto script = PadScript().tap({0.9, 0.4}, 0.2, 0.04).click({0.5, 0.5}, 0.6, 0.06);
    recording.write(writeRecording({script.pad(), script.events()}).c_str());
    recording.close();
    MockedPad mouse(input_, ordinaryMouse(), 6);
    Probe probe(environment(recording.fileName()));
    EXPECT_EQ(probe.next(), "device");
    QElapsedTimer time;
    time.start();
    EXPECT_THAT(probe.next(), HasSubstr("1:3@0.90,0.40"));
    EXPECT_NEAR(double(time.restart()), 200, 100);
    EXPECT_EQ(probe.upTo("left").back(), "left");
    EXPECT_NEAR(double(time.elapsed()), 424, 100);
    EXPECT_EQ(probe.upTo("frame").back(), "frame");
    mouse.write(press()); // nobody but the recording is heard
    EXPECT_EQ(probe.next(200), "(silent)");
}

} // namespace

} // namespace brimlow::platform
