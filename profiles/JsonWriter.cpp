#include "profiles/JsonWriter.h"

#include "platform/JsonText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace brimlow::json {

void Writer::begin(char bracket) {
    separate();
    bytes_ += bracket;
    first_ = true;
}

void Writer::end(char bracket) {
    bytes_ += bracket;
    first_ = false;
}

void Writer::separate() {
    if (!first_)
        bytes_ += ',';
    first_ = false;
}

void Writer::key(std::string_view name) {
    separate();
    appendQuoted(name);
    bytes_ += ':';
    first_ = true;
}

void Writer::value(const QString& text) {
    separate();
    const QByteArray utf8 = text.toUtf8();
    appendQuoted({utf8.constData(), static_cast<std::size_t>(utf8.size())});
}

void Writer::value(double number) {
    separate();
    complete_ = complete_ && std::isfinite(number);
    std::array<char, 32> digits{}; // 24 are the most that a double needs
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    bytes_.append(digits.data(), end - digits.data());
}

void Writer::value(qint64 number) {
    separate();
    bytes_ += QByteArray::number(number);
}

void Writer::value(bool boolean) {
    separate();
    bytes_ += boolean ? "true" : "false";
}

void Writer::value(const QUuid& id) {
    value(uuidText(id));
}

void Writer::value(platform::Date date) {
    if (dates_ == DateStrategy::secondsSince2001)
        return value(secondsSince2001(date));
    const QString text = iso8601Text(date);
    complete_ = complete_ && !text.isNull();
    value(text);
}

std::optional<QByteArray> Writer::bytes() const {
    return complete_ ? std::optional(platform::withMarksEscaped(bytes_)) : std::nullopt;
}

void Writer::appendQuoted(std::string_view utf8) {
    const auto isPlain = [](char character) {
        return static_cast<unsigned char>(character) >= 0x20 && character != '"'
               && character != '\\';
    };
    bytes_ += '"';
    for (auto rest = utf8.begin(); rest != utf8.end();) {
        const auto special = std::find_if_not(rest, utf8.end(), isPlain);
        bytes_.append(&*rest, special - rest);
        rest = special;
        if (special != utf8.end())
            appendEscaped(*rest++);
    }
    bytes_ += '"';
}

void Writer::appendEscaped(char character) {
    if (character == '"' || character == '\\') {
        bytes_ += '\\';
        bytes_ += character;
        return;
    }
    std::array<char, 7> escape{};
    std::snprintf(escape.data(), escape.size(), "\\u%04x", character);
    bytes_ += escape.data();
}

} // namespace brimlow::json
