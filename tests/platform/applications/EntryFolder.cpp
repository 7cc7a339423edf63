#include "tests/platform/applications/EntryFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdlib>

namespace brimlow::test {

void writeFile(const QString& path, const QByteArray& text) {
    QFile file(path);
    if (!QDir().mkpath(QFileInfo(path).path()) || !file.open(QFile::WriteOnly | QFile::Truncate)
        || file.write(text) != text.size())
        std::abort();
}

QByteArray entryText(const QByteArray& name, const QByteArray& exec, const QByteArray& keys) {
    return "[Desktop Entry]\nType=Application\nName=" + name + "\nExec=" + exec + '\n' + keys;
}

} // namespace brimlow::test
