#pragma once

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonValue>

namespace brimlow::test {

/// Any JSON value from its text, with apostrophes for quotation marks, which are hard to read in
/// C++.
inline QJsonValue quoted(QByteArray text) {
    return QJsonDocument::fromJson('[' + text.replace('\'', '"') + ']').array().at(0);
}

} // namespace brimlow::test
