#include "platform/JsonText.h"

#include <string_view>

namespace brimlow::platform {

namespace {

constexpr const char* byteOrderMark = "\xef\xbb\xbf";

} // namespace

QJsonDocument parsedJson(const QByteArray& text) {
    const bool marked = text.startsWith(byteOrderMark);
    return QJsonDocument::fromJson(withMarksEscaped(marked ? text.sliced(3) : text));
}

QByteArray jsonText(const QJsonDocument& document, QJsonDocument::JsonFormat format) {
    return withMarksEscaped(document.toJson(format));
}

QByteArray withMarksEscaped(QByteArray text) {
    // There is hardly ever one, and this looks several times as fast as QByteArray does.
    const std::string_view view(text.constData(), static_cast<std::size_t>(text.size()));
    if (view.find(byteOrderMark) == std::string_view::npos)
        return text;
    return text.replace(byteOrderMark, "\\ufeff");
}

} // namespace brimlow::platform
