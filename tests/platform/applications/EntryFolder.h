#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace brimlow::test {

/// Writes `text` to the file, whose folders are made where they are missing.
inline void writeFile(const QString& path, const QByteArray& text) {
    QFile file(path);
    if (!QDir().mkpath(QFileInfo(path).path()) || !file.open(QFile::WriteOnly | QFile::Truncate)
        || file.write(text) != text.size())
        qFatal("%s cannot be written", qPrintable(path));
}

/// The text of an application's entry: `keys` are lines that come after its type.
inline QByteArray entryText(const QByteArray& name, const QByteArray& exec,
                            const QByteArray& keys = {}) {
    return "[Desktop Entry]\nType=Application\nName=" + name + "\nExec=" + exec + '\n' + keys;
}

} // namespace brimlow::test
