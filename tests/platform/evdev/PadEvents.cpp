#include "PadEvents.h"

#include "platform/linux/evdev/Recording.h"

#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>

namespace brimlow::platform {

namespace {

struct Word {
    std::uint16_t type;
    std::uint16_t code;
};

const std::map<std::string, Word>& words() {
    static const std::map<std::string, Word> all{{"s", {EV_ABS, ABS_MT_SLOT}},
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
    return all;
}

std::string fileOf(const std::string& name) {
    return BRIMLOW_TEST_DEVICES "/" + name + ".device";
}

} // namespace

TrackpadDescription deviceDescription(const std::string& name) {
    std::ifstream file(fileOf(name));
    std::ostringstream text;
    text << file.rdbuf();
    auto result = parseDescription(text.str(), fileOf(name));
    if (const auto* error = std::get_if<RecordingError>(&result))
        throw std::runtime_error(error->text());
    return std::get<TrackpadDescription>(result);
}

std::vector<input_event> eventsOf(const std::string& text) {
    std::vector<input_event> events;
    std::istringstream stream(text);
    double time = 1;
    for (std::string word; stream >> word;) {
        const auto digits = std::min(word.find_first_of("-0123456789"), word.size());
        const Word& meaning = words().at(word.substr(0, digits));
        input_event event{};
        event.type = meaning.type;
        event.code = meaning.code;
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
