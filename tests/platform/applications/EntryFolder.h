#pragma once

#include <QString>

namespace brimlow::test {

/// Writes `text` to the file, whose folders are made where they are missing.
void writeFile(const QString& path, const QByteArray& text);

/// The text of an application's entry: `keys` are lines that come after its type.
QByteArray entryText(const QByteArray& name, const QByteArray& exec, const QByteArray& keys = {});

} // namespace brimlow::test
