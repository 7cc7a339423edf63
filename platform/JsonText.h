#pragma once

#include <QByteArray>
#include <QJsonDocument>

namespace brimlow::platform {

// JSON as UTF-8, by Qt's parser and writer. They alone would lose a byte order mark that begins a
// text or a key, so that two keys become one: inside of a document it is read and written as an
// escape. Any thread.

/// A null document for what Qt does not take as JSON. A byte order mark may stand before it all.
QJsonDocument parsedJson(const QByteArray& text);

QByteArray jsonText(const QJsonDocument& document, QJsonDocument::JsonFormat format);

/// `text` with an escape for each byte order mark. For texts that are in quotation marks.
QByteArray withMarksEscaped(QByteArray text);

} // namespace brimlow::platform
