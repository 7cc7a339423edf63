#include "profiles/StrictJson.h"

#include "platform/JsonText.h"

#include <QJsonArray>
#include <QJsonObject>

#include <optional>
#include <string_view>

namespace brimlow::json {

namespace {

/// Finds what Qt's parser lets pass, in a text that it has accepted: so brackets match, strings
/// end, and every \u has its four digits.
class Scanner {
public:
    explicit Scanner(std::string_view text) : text_(text) {}

    /// How many members all objects together have as written, or none for a text that is not JSON.
    std::optional<qsizetype> memberCount() {
        while (at_ < text_.size()) {
            const char character = text_[at_++];
            if (character == ':')
                ++members_;
            else if (character == '.' ? !isBetweenDigits() : character == '"' && !skipString())
                return std::nullopt;
        }
        return members_;
    }

private:
    static bool isDigit(char character) { return character >= '0' && character <= '9'; }

    bool isBetweenDigits() const { return isDigit(text_[at_ - 2]) && isDigit(text_[at_]); }

    bool skipString() {
        for (char character = text_[at_++]; character != '"'; character = text_[at_++]) {
            const bool control = static_cast<unsigned char>(character) < 0x20;
            if (control || (character == '\\' && !skipEscape()))
                return false;
        }
        return true;
    }

    bool skipEscape() {
        const char kind = text_[at_++];
        if (kind != 'u')
            return std::string_view("\"\\/bfnrt").find(kind) != std::string_view::npos;
        const char16_t unit = skipUnit();
        if (!QChar::isSurrogate(unit))
            return true;
        if (!QChar::isHighSurrogate(unit) || text_.substr(at_, 2) != "\\u")
            return false;
        at_ += 2;
        return QChar::isLowSurrogate(skipUnit());
    }

    char16_t skipUnit() {
        const auto digits = text_.substr(at_, 4);
        at_ += digits.size();
        return QByteArray::fromRawData(digits.data(), 4).toUShort(nullptr, 16);
    }

    std::string_view text_;
    std::size_t at_ = 0;
    qsizetype members_ = 0;
};

qsizetype memberCount(const QJsonValue& value);

/// Of the containers among `children` alone: to make a value of each text would take most of the
/// time.
template<typename Container>
qsizetype memberCountBelow(const Container& children) {
    qsizetype count = 0;
    for (const QJsonValueConstRef child : children) {
        if (child.isArray() || child.isObject())
            count += memberCount(child);
    }
    return count;
}

qsizetype memberCount(const QJsonValue& value) {
    if (value.isArray())
        return memberCountBelow(value.toArray());
    const QJsonObject object = value.toObject();
    return object.size() + memberCountBelow(object);
}

} // namespace

QJsonValue strictlyParsed(const QByteArray& text) {
    const auto document = platform::parsedJson(text);
    if (document.isNull())
        return QJsonValue::Undefined;
    const QJsonValue value =
        document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
    // Fewer members than were written: some had the same name.
    Scanner scanner({text.constData(), static_cast<std::size_t>(text.size())});
    return scanner.memberCount() == memberCount(value) ? value : QJsonValue::Undefined;
}

} // namespace brimlow::json
