#include "platform/linux/evdev/Recording.h"

#include "tools/recording/DemoRecording.h"
#include "tools/recording/RecordingWriter.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace brimlow::platform {

namespace {

const std::string head = "# EVEMU 1.3\n"
                         "N: Some Touchpad\n"
                         "I: 0018 06cb 76ad 0100\n"
                         "P: 05\n"
                         "B: 03 03\n"
                         "A: 00 -10 1216 0 0 12\n"; // the first event is on line 7
const std::string event = "E: 0.000001 0003 0000 1\n";

TEST(Recording, ARefusalNamesTheLineAndTheReason) {
    const std::string time = "7: expected a time as seconds.microseconds with six decimals";
    const std::pair<std::string, std::string> rows[] = {
        {"", "0: no events"},
        {head + "E: 0.5 0003 0000 1\n", time},
        {head + "E: 99999999999.000000 0003 0000 1\n", time},
        {head + "E: 0.000001 0020 0000 1\n", "7: expected an event type, hexadecimal, at most 1f"},
        {head + "E: 0.000001 0003 0040 1\n", "7: expected a code of this event type, hexadecimal"},
        {head + "E: 0.000001 0003 0000 2147483648\n", "7: expected a value, decimal, of 32 bits"},
        {head + "E: 0.000001 0003 0000 1 1\n", "7: more fields than expected"},
        {head + event + "\nE: 0.000000 0003 0000 1\n", "9: time goes backwards"},
        {head + event + "A: 00 0 1 0 0\n", "8: a description among the events"},
        {event, "1: an event before the description's B and A lines"},
        {head + "Q: 1\n", "7: unknown kind of line"},
        {head + "hello\n", "7: not a line of a recording"},
        {"I: 0018 06cb 176ad 0\n", "1: expected four hexadecimal numbers of at most four digits"},
        {"P: 05 100\n", "1: expected bytes of two hexadecimal digits"},
        {"P: 00 00 00 00 01\n", "1: more bits than there are codes"},
        {"A: 00 0 1 0\n", "1: expected minimum, maximum, fuzz and flat, decimal"},
        {"A: 00 0 1 0 0 -1\n", "1: expected a resolution, decimal, not below 0"},
        {"A: 00 2 1 0 0 0\n", "1: the axis' minimum is above its maximum"}};
    for (const auto& [text, error] : rows) {
        const auto result = parseRecording(text, "pad.evemu");
        ASSERT_TRUE(std::holds_alternative<RecordingError>(result)) << text;
        EXPECT_EQ(std::get<RecordingError>(result).text(), "pad.evemu:" + error) << text;
    }
}

TEST(Recording, ReadsWhatEvemuPrints) {
    const auto [pad, events] = std::get<Recording>(
        parseRecording(head
                           + "L: 01 00\r\nS: 00 0\n\n  \n"
                             "E: 0.000001 0003 0039 0022\t# EV_ABS / ABS_MT_TRACKING_ID   22\r\n"
                             "E: 3.040506 0003 0000 -005",
                       "pad.evemu"));
    EXPECT_EQ(pad.name, "Some Touchpad");
    EXPECT_EQ(pad.product, 0x76ad);
    EXPECT_TRUE(pad.properties[INPUT_PROP_BUTTONPAD]);
    EXPECT_EQ(pad.axes[ABS_X]->minimum, -10);
    EXPECT_EQ(pad.axes[ABS_X]->resolution, 12);
    ASSERT_EQ(events.size(), 2U);
    EXPECT_EQ(events[0].value, 22);
    EXPECT_EQ(events[1].value, -5);
    EXPECT_EQ(events[1].input_event_usec, 40506);
}

TEST(Recording, RefusesWhatIsTooLarge) {
    const auto huge = std::filesystem::temp_directory_path() / "brimlow-huge.evemu";
    std::ofstream(huge).close();
    std::filesystem::resize_file(huge, largestRecording + 1);
    EXPECT_EQ(std::get<RecordingError>(readRecording(huge)).text(),
              huge.string() + ":0: is larger than 64 MB");
    std::filesystem::remove(huge);
}

TEST(Recording, TheShippedOneIsTheDemo) {
    const auto recording = std::get<Recording>(readRecording(BRIMLOW_DEMO_RECORDING));
    const PadScript script = demo::script();
    EXPECT_EQ(recording.events.size(), script.events().size());
    std::ifstream file(BRIMLOW_DEMO_RECORDING);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    EXPECT_EQ(text, writeRecording({script.pad(), script.events()})) << "run make-demo-recording";
}

} // namespace

} // namespace brimlow::platform
