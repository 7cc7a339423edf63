#include "PadEvents.h"

#include "platform/linux/evdev/Recording.h"

#include <fstream>
#include <map>
#include <sstream>
#include <tuple>

namespace brimlow::platform {

namespace {

using Word = std::pair<std::uint16_t, std::uint16_t>; // type and code

const std::map<std::string, Word> words{{"s", {EV_ABS, ABS_MT_SLOT}},
                                        {"id", {EV_ABS, ABS_MT_TRACKING_ID}},
                                        {"x", {EV_ABS, ABS_MT_POSITION_X}},
                                        {"y", {EV_ABS, ABS_MT_POSITION_Y}},
                                        {"p", {EV_ABS, ABS_MT_PRESSURE}},
                                        {"M", {EV_ABS, ABS_MT_TOUCH_MAJOR}},
                                        {"t", {EV_ABS, ABS_MT_TOOL_TYPE}},
                                        {"d", {EV_ABS, ABS_MT_DISTANCE}},
                                        {"X", {EV_ABS, ABS_X}},
                                        {"Y", {EV_ABS, ABS_Y}},
                                        {"P", {EV_ABS, ABS_PRESSURE}},
                                        {"T", {EV_KEY, BTN_TOUCH}},
                                        {"F", {EV_KEY, BTN_TOOL_FINGER}},
                                        {"D", {EV_KEY, BTN_TOOL_DOUBLETAP}},
                                        {"L", {EV_KEY, BTN_LEFT}},
                                        {".", {EV_SYN, SYN_REPORT}},
                                        {"!", {EV_SYN, SYN_DROPPED}}};

} // namespace

TrackpadDescription deviceDescription(const std::string& name) {
    std::ifstream file(BRIMLOW_TEST_DEVICES "/" + name + ".device");
    const std::string text(std::istreambuf_iterator<char>(file), {});
    return std::get<TrackpadDescription>(parseDescription(text, name));
}

std::vector<input_event> eventsOf(const std::string& text) {
    std::vector<input_event> events;
    std::istringstream stream(text);
    double time = 1;
    for (std::string word; stream >> word;) {
        const auto digits = std::min(word.find_first_of("-0123456789"), word.size());
        input_event event{};
        std::tie(event.type, event.code) = words.at(word.substr(0, digits));
        event.value = digits < word.size() ? std::stoi(word.substr(digits)) : 0;
        events.push_back(atSeconds(event, time));
        time += event.type == EV_SYN ? 0.01 : 0;
    }
    return events;
}

std::string framesOf(TouchDecoder& decoder, const std::string& text) {
    std::string frames;
    const auto note = [&](bool changed) {
        if (changed)
            frames += (frames.empty() ? "" : " ") + textOf(decoder.contacts());
    };
    std::istringstream stream(text);
    for (std::string word; stream >> word;) {
        if (word == "[")
            note(decoder.beginResync());
        else if (word == "]")
            decoder.endResync();
        else
            note(decoder.feed(eventsOf(word).front()));
    }
    return frames;
}

std::string textOf(std::span<const MTFinger> fingers) {
    std::string text;
    for (const MTFinger& finger : fingers)
        text += (text.empty() ? "" : "+") + std::to_string(finger.identifier) + ":"
                + std::to_string(finger.state);
    return text.empty() ? "-" : text;
}

} // namespace brimlow::platform
