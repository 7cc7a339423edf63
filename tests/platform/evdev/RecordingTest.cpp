#include "platform/linux/evdev/Recording.h"

#include "PadEvents.h"
#include "platform/linux/evdev/ContactFrames.h"
#include "platform/linux/evdev/PadFeed.h"
#include "tools/recording/DemoRecording.h"
#include "tools/recording/RecordingWriter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <map>

namespace brimlow::platform {

namespace {

const std::string head = "# EVEMU 1.3\n"
                         "N: Some Touchpad\n"
                         "I: 0018 06cb 76ad 0100\n"
                         "P: 05\n"
                         "B: 03 03\n"
                         "A: 00 -10 1216 0 0 12\n"; // the first event is on line 7

struct Refusal {
    std::string text;
    const char* error;
};

class Refusals : public testing::TestWithParam<Refusal> {};

TEST_P(Refusals, NameTheLineAndTheReason) {
    const auto result = parseRecording(GetParam().text, "pad.evemu");
    ASSERT_TRUE(std::holds_alternative<RecordingError>(result)) << GetParam().text;
    EXPECT_EQ(std::get<RecordingError>(result).text(), GetParam().error);
}

const char* const badTime =
    "pad.evemu:7: expected a time as seconds.microseconds with six decimals";
const char* const badValue = "pad.evemu:7: expected a value, decimal, of 32 bits";

INSTANTIATE_TEST_SUITE_P(
    Events, Refusals,
    testing::Values(Refusal{head, "pad.evemu:6: no events"}, Refusal{"", "pad.evemu:0: no events"},
                    Refusal{head + "E: 0.5 0003 0000 1\n", badTime},
                    Refusal{head + "E: .000001 0003 0000 1\n", badTime},
                    Refusal{head + "E: 1,000001 0003 0000 1\n", badTime},
                    Refusal{head + "E: -1.000001 0003 0000 1\n", badTime},
                    Refusal{head + "E: 1.00000x 0003 0000 1\n", badTime},
                    Refusal{head + "E: 99999999999.000000 0003 0000 1\n", badTime},
                    Refusal{head + "E:\n", badTime},
                    Refusal{head + "E: 0.000001 0020 0000 1\n",
                            "pad.evemu:7: expected an event type, hexadecimal, at most 1f"},
                    Refusal{head + "E: 0.000001 0003 0040 1\n",
                            "pad.evemu:7: expected a code of this event type, hexadecimal"},
                    Refusal{head + "E: 0.000001 0001 0300 1\n",
                            "pad.evemu:7: expected a code of this event type, hexadecimal"},
                    Refusal{head + "E: 0.000001 0003 0000 2147483648\n", badValue},
                    Refusal{head + "E: 0.000001 0003 0000 1f\n", badValue},
                    Refusal{head + "E: 0.000001 0003 0000\n", badValue},
                    Refusal{head + "E: 0.000001 0003 0000 1 1\n",
                            "pad.evemu:7: more fields than expected"},
                    Refusal{head + "\nE: 0.000002 0003 0000 1\nE: 0.000001 0003 0000 1\n",
                            "pad.evemu:9: time goes backwards"},
                    Refusal{head + "E: 0.000001 0003 0000 1\nN: again\n",
                            "pad.evemu:8: a description among the events"},
                    Refusal{head + "E: 0.000001 0003 0000 1\nA: 00 0 1 0 0\n",
                            "pad.evemu:8: a description among the events"}));

INSTANTIATE_TEST_SUITE_P(
    Head, Refusals,
    testing::Values(
        Refusal{"E: 0.000001 0003 0000 1\n",
                "pad.evemu:1: an event before the description's B and A lines"},
        Refusal{"N: x\nB: 03 03\nE: 0.000001 0003 0000 1\n",
                "pad.evemu:3: an event before the description's B and A lines"},
        Refusal{head + "Q: 1\n", "pad.evemu:7: unknown kind of line"},
        Refusal{head + "hello\n", "pad.evemu:7: not a line of a recording"},
        Refusal{"I: 0018 06cb 76ad\n",
                "pad.evemu:1: expected four hexadecimal numbers of at most four digits"},
        Refusal{"I: 0018 06cb 176ad 0\n",
                "pad.evemu:1: expected four hexadecimal numbers of at most four digits"},
        Refusal{"P: 05 100\n", "pad.evemu:1: expected bytes of two hexadecimal digits"},
        Refusal{"P: 00 00 00 00 01\n", "pad.evemu:1: more bits than there are codes"},
        Refusal{"B: 20 00\n", "pad.evemu:1: expected an event type, hexadecimal, at most 1f"},
        Refusal{"A: 40 0 1 0 0 0\n", "pad.evemu:1: expected an axis, hexadecimal, at most 3f"},
        Refusal{"A: 00 0 1 0\n", "pad.evemu:1: expected minimum, maximum, fuzz and flat, decimal"},
        Refusal{"A: 00 0 1 0 0 -1\n", "pad.evemu:1: expected a resolution, decimal, not below 0"},
        Refusal{"A: 00 2 1 0 0 0\n", "pad.evemu:1: the axis' minimum is above its maximum"}));

TEST(Recording, ReadsWhatEvemuPrints) {
    const auto result =
        parseRecording(head
                           + "L: 01 00\r\nS: 00 0\n\n  \n"
                             "E: 0.000001 0003 0039 0022\t# EV_ABS / ABS_MT_TRACKING_ID   22\r\n"
                             "E: 3.040506 0003 0000 -005",
                       "pad.evemu");
    const auto* recording = std::get_if<Recording>(&result);
    ASSERT_TRUE(recording) << std::get<RecordingError>(result).text();
    EXPECT_EQ(recording->description.name, "Some Touchpad");
    EXPECT_EQ(recording->description.product, 0x76ad);
    EXPECT_TRUE(recording->description.properties[INPUT_PROP_BUTTONPAD]);
    EXPECT_EQ(recording->description.axes[ABS_X]->minimum, -10);
    EXPECT_EQ(recording->description.axes[ABS_X]->resolution, 12);
    ASSERT_EQ(recording->events.size(), 2U);
    EXPECT_EQ(recording->events[0].value, 22);
    EXPECT_EQ(recording->events[1].value, -5);
    EXPECT_EQ(recording->events[1].input_event_usec, 40506);
}

TEST(Recording, RefusesWhatIsNoFileOfItsKind) {
    const auto folder = std::filesystem::temp_directory_path() / "brimlow-recording-test";
    std::filesystem::create_directories(folder);
    const auto huge = folder / "huge.evemu";
    std::ofstream(huge).close();
    std::filesystem::resize_file(huge, largestRecording + 1);
    const std::map<std::filesystem::path, std::string> reasons{
        {folder, "is not a file"},
        {"/dev/null", "is not a file"},
        {folder / "none", "cannot be read: No such file or directory"},
        {huge, "is larger than 64 MB"}};
    for (const auto& [path, reason] : reasons) {
        const auto result = readRecording(path);
        ASSERT_TRUE(std::holds_alternative<RecordingError>(result)) << path;
        EXPECT_EQ(std::get<RecordingError>(result).text(), path.string() + ":0: " + reason);
    }
    std::filesystem::remove_all(folder);
}

TEST(Recording, TheShippedOneIsTheDemoAndTapsWhereItSays) {
    const auto result = readRecording(BRIMLOW_DEMO_RECORDING);
    const auto* recording = std::get_if<Recording>(&result);
    ASSERT_TRUE(recording) << std::get<RecordingError>(result).text();
    const PadScript script = demo::script();
    std::ifstream file(BRIMLOW_DEMO_RECORDING);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    EXPECT_EQ(text, writeRecording({script.pad(), script.events()})) << "run make-demo-recording";

    // A plain reading of what a tap is: short, and not moved.
    std::map<std::int32_t, MTFinger> began;
    std::string taps;
    ContactIdentities identities;
    ContactFrames frames([&](auto fingers, double, std::int32_t) {
        for (const MTFinger& finger : fingers) {
            const MTFinger& start = began.try_emplace(finger.identifier, finger).first->second;
            if (finger.state == MTContactLifted && finger.timestamp - start.timestamp < 0.5)
                taps += std::to_string(std::lround(finger.normalized.pos.x * 100)) + ","
                        + std::to_string(std::lround(finger.normalized.pos.y * 100)) + " ";
        }
    });
    PadFeed feed(recording->description, identities, frames);
    for (const input_event& event : recording->events)
        feed.feed(event);
    EXPECT_EQ(taps, "95,50 5,50 50,30 95,95 50,10 5,95 ");
    EXPECT_EQ(began.size(), 9U);
}

} // namespace

} // namespace brimlow::platform
