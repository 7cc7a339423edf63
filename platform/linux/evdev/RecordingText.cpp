#include "platform/linux/evdev/Recording.h"

#include <array>
#include <charconv>
#include <limits>
#include <optional>

namespace brimlow::platform {

namespace {

// A kernel's clock does not get there; keeps differences of times exact in a double.
constexpr long largestSecond = 1L << 32;

/// One line's fields, taken from the left.
class Fields {
public:
    explicit Fields(std::string_view text) : rest_(text) {}

    std::optional<std::string_view> next() {
        const auto begin = rest_.find_first_not_of(blanks);
        if (begin == std::string_view::npos)
            return std::nullopt;
        rest_.remove_prefix(begin);
        const auto field = rest_.substr(0, rest_.find_first_of(blanks));
        rest_.remove_prefix(field.size());
        return field;
    }

    /// Absent unless the next field is a whole number within the limits.
    template<typename Number>
    std::optional<Number> number(int base, Number least, Number most) {
        const auto field = next();
        if (!field)
            return std::nullopt;
        Number value{};
        const auto [end, error] =
            std::from_chars(field->data(), field->data() + field->size(), value, base);
        if (error != std::errc{} || end != field->data() + field->size() || value < least
            || value > most)
            return std::nullopt;
        return value;
    }

    std::optional<unsigned> code(unsigned most) { return number<unsigned>(16, 0, most); }
    std::optional<std::int32_t> value() {
        using Limits = std::numeric_limits<std::int32_t>;
        return number<std::int32_t>(10, Limits::min(), Limits::max());
    }

    bool atEnd() const { return rest_.find_first_not_of(blanks) == std::string_view::npos; }

private:
    static constexpr std::string_view blanks = " \t";
    std::string_view rest_;
};

/// The highest code the kernel has for a type; what it does not number may have any.
unsigned largestCode(unsigned type) {
    switch (type) {
    case EV_KEY:
        return KEY_MAX;
    case EV_REL:
        return REL_MAX;
    case EV_ABS:
        return ABS_MAX;
    default:
        return 0xffff;
    }
}

std::string_view trimmed(std::string_view text) {
    const auto begin = text.find_first_not_of(" \t\r");
    if (begin == std::string_view::npos)
        return {};
    return text.substr(begin, text.find_last_not_of(" \t\r") - begin + 1);
}

class Parser {
public:
    explicit Parser(std::string file) : file_(std::move(file)) {}

    std::optional<RecordingError> read(std::string_view text) {
        while (!text.empty()) {
            const auto end = text.find('\n');
            ++line_;
            if (const char* reason = readLine(trimmed(text.substr(0, end))))
                return refuse(reason);
            text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        }
        return std::nullopt;
    }

    RecordingError refuse(const char* reason) const { return {file_, line_, reason}; }
    bool described() const { return sawBits_ && sawAxis_; }

    Recording recording;

private:
    // Each gives the reason why the line is refused, or null.

    const char* readLine(std::string_view line) {
        if (line.empty() || line.front() == '#')
            return nullptr;
        if (line.size() < 2 || line[1] != ':')
            return "not a line of a recording";
        const std::string_view rest = trimmed(line.substr(2, line.find('#', 2) - 2));
        switch (line.front()) {
        case 'E':
            return readEvent(Fields(rest));
        case 'L':
        case 'S':
            return nullptr;
        case 'N':
            recording.description.name = trimmed(line.substr(2));
            return recording.events.empty() ? nullptr : "a description among the events";
        case 'I':
            return readHead(&Parser::readIds, rest);
        case 'P':
            return readHead(&Parser::readProperties, rest);
        case 'B':
            return readHead(&Parser::readBits, rest);
        case 'A':
            return readHead(&Parser::readAxis, rest);
        default:
            return "unknown kind of line";
        }
    }

    const char* readHead(const char* (Parser::*readFields)(Fields), std::string_view rest) {
        return recording.events.empty() ? (this->*readFields)(Fields(rest))
                                        : "a description among the events";
    }

    const char* readIds(Fields fields) {
        TrackpadDescription& description = recording.description;
        for (std::uint16_t* id :
             {&description.bus, &description.vendor, &description.product, &description.version}) {
            const auto value = fields.code(0xffff);
            if (!value)
                return "expected four hexadecimal numbers of at most four digits";
            *id = static_cast<std::uint16_t>(*value);
        }
        return fields.atEnd() ? nullptr : "more fields than expected";
    }

    template<std::size_t size>
    const char* addBits(Fields fields, std::bitset<size>& bits, std::size_t& filled) {
        while (!fields.atEnd()) {
            const auto byte = fields.code(0xff);
            if (!byte)
                return "expected bytes of two hexadecimal digits";
            for (unsigned bit = 0; bit < 8; ++bit, ++filled) {
                if (*byte & (1U << bit) && filled >= size)
                    return "more bits than there are codes";
                if (*byte & (1U << bit))
                    bits.set(filled);
            }
        }
        return nullptr;
    }

    const char* readProperties(Fields fields) {
        return addBits(fields, recording.description.properties, filledProperties_);
    }

    const char* readBits(Fields fields) {
        const auto type = fields.code(EV_MAX);
        if (!type)
            return "expected an event type, hexadecimal, at most 1f";
        sawBits_ = true;
        std::size_t& filled = filledBits_[*type];
        if (*type == EV_KEY)
            return addBits(fields, recording.description.keys, filled);
        if (*type == EV_REL)
            return addBits(fields, recording.description.relatives, filled);
        std::bitset<KEY_CNT> unused;
        return addBits(fields, unused, filled);
    }

    const char* readAxis(Fields fields) {
        const auto axis = fields.code(ABS_MAX);
        if (!axis)
            return "expected an axis, hexadecimal, at most 3f";
        AxisRange range;
        std::int32_t unused = 0;
        for (std::int32_t* number : {&range.minimum, &range.maximum, &unused, &unused}) {
            const auto value = fields.value();
            if (!value)
                return "expected minimum, maximum, fuzz and flat, decimal";
            *number = *value;
        }
        if (!fields.atEnd()) {
            const auto resolution = fields.value();
            if (!resolution || *resolution < 0)
                return "expected a resolution, decimal, not below 0";
            range.resolution = *resolution;
        }
        if (!fields.atEnd())
            return "more fields than expected";
        if (range.minimum > range.maximum)
            return "the axis' minimum is above its maximum";
        recording.description.axes[*axis] = range;
        sawAxis_ = true;
        return nullptr;
    }

    const char* readEvent(Fields fields) {
        if (!described())
            return "an event before the description's B and A lines";
        input_event event{};
        if (!readTime(fields.next(), event))
            return "expected a time as seconds.microseconds with six decimals";
        const auto type = fields.code(EV_MAX);
        if (!type)
            return "expected an event type, hexadecimal, at most 1f";
        const auto code = fields.code(largestCode(*type));
        if (!code)
            return "expected a code of this event type, hexadecimal";
        const auto value = fields.value();
        if (!value)
            return "expected a value, decimal, of 32 bits";
        if (!fields.atEnd())
            return "more fields than expected";
        if (!recording.events.empty() && secondsOf(event) < secondsOf(recording.events.back()))
            return "time goes backwards";
        event.type = static_cast<std::uint16_t>(*type);
        event.code = static_cast<std::uint16_t>(*code);
        event.value = *value;
        recording.events.push_back(event);
        return nullptr;
    }

    static bool readTime(std::optional<std::string_view> field, input_event& event) {
        constexpr std::size_t decimals = 6;
        if (!field || field->size() < decimals + 2 || (*field)[field->size() - decimals - 1] != '.')
            return false;
        const auto point = field->size() - decimals - 1;
        const auto seconds = Fields(field->substr(0, point)).number<long>(10, 0, largestSecond);
        const auto microseconds = Fields(field->substr(point + 1)).number<long>(10, 0, 999'999);
        if (!seconds || !microseconds)
            return false;
        event.input_event_sec = *seconds;
        event.input_event_usec = *microseconds;
        return true;
    }

    std::string file_;
    int line_ = 0;
    bool sawBits_ = false;
    bool sawAxis_ = false;
    std::size_t filledProperties_ = 0;
    std::array<std::size_t, EV_CNT> filledBits_{};
};

} // namespace

RecordingResult<Recording> parseRecording(std::string_view text, std::string file) {
    Parser parser(std::move(file));
    if (auto error = parser.read(text))
        return *error;
    if (parser.recording.events.empty())
        return parser.refuse("no events");
    return std::move(parser.recording);
}

RecordingResult<TrackpadDescription> parseDescription(std::string_view text, std::string file) {
    Parser parser(std::move(file));
    if (auto error = parser.read(text))
        return *error;
    if (!parser.described())
        return parser.refuse("no description: its B and A lines are missing");
    return std::move(parser.recording.description);
}

} // namespace brimlow::platform
