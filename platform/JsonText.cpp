#include "platform/JsonText.h"

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
    return text.replace(byteOrderMark, "\\ufeff");
}

} // namespace brimlow::platform
