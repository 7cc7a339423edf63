#include "platform/DamagedFile.h"

#include "platform/AtomicFile.h"
#include "platform/FileDescriptor.h"

#include <QDateTime>
#include <QFile>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace brimlow::platform {

using namespace Qt::StringLiterals;

namespace {

/// Makes an empty file under a name that nobody has, which is then ours to replace.
QString reserveName(const QString& path) {
    const QString stamp = QDateTime::currentDateTimeUtc().toString(u"yyyyMMdd'T'HHmmss'Z'");
    const QString name = path + u".damaged-"_s + stamp;
    QString candidate = name;
    for (int number = 2;; ++number) {
        const FileDescriptor file(::open(QFile::encodeName(candidate).constData(),
                                         O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
        if (file)
            return candidate;
        if (errno != EEXIST)
            return {};
        candidate = name + u'-' + QString::number(number);
    }
}

} // namespace

QString moveAsideAsDamaged(const QString& path) {
    const QString target = symbolicLinkTarget(path);
    const QString name = reserveName(target);
    if (name.isNull())
        return {};
    const QByteArray reserved = QFile::encodeName(name);
    if (::rename(QFile::encodeName(target).constData(), reserved.constData()) == 0)
        return name;
    ::unlink(reserved.constData());
    return {};
}

QString keepAsDamaged(const QString& path, const QByteArray& contents) {
    const QString name = reserveName(path);
    if (name.isNull() || replaceFile(name, contents).done)
        return name;
    ::unlink(QFile::encodeName(name).constData());
    return {};
}

} // namespace brimlow::platform
