#pragma once

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonValue>

namespace brimlow::test {

/// Any JSON value from its text.
inline QJsonValue parsed(const QByteArray& text) {
    return QJsonDocument::fromJson('[' + text + ']').array().at(0);
}

/// `text` with apostrophes for quotation marks, which makes it readable in C++.
inline QJsonValue quoted(QByteArray text) {
    return parsed(text.replace('\'', '"'));
}

} // namespace brimlow::test
