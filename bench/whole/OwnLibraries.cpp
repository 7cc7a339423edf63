#include "bench/whole/OwnLibraries.h"

#include "tools/desktop/ChildProcess.h"

#include <QFile>
#include <QLibraryInfo>
#include <QRegularExpression>

#include <stdexcept>

namespace brimlow::bench {

using namespace Qt::StringLiterals;

OwnLibraries::OwnLibraries(const QString& program) {
    copyFor(program);
    copyFor(QLibraryInfo::path(QLibraryInfo::PluginsPath) + u"/platforms/libqxcb.so"_s);
}

void OwnLibraries::copyFor(const QString& program) const {
    const auto list =
        desktop::outputOf(u"ldd"_s, {program}, QProcessEnvironment::systemEnvironment());
    // "	libQt6Core.so.6 => /usr/lib/x86_64-linux-gnu/libQt6Core.so.6 (0x00007f0000000000)";
    // the last two come with Qt.
    static const QRegularExpression line(u"\\b((?:libQt6|libicu|libpcre2-16)\\S+) => (/\\S+)"_s);
    auto matches = line.globalMatch(QString::fromLocal8Bit(list.value_or(QByteArray())));
    if (!matches.hasNext())
        throw std::runtime_error("what the program is linked with cannot be told");
    for (const auto& match : matches)
        QFile::copy(match.captured(2), folder_.filePath(match.captured(1)));
}

void OwnLibraries::addTo(QProcessEnvironment& environment) const {
    environment.insert(u"LD_LIBRARY_PATH"_s, folder_.path());
}

} // namespace brimlow::bench
