#include "platform/linux/identity/ProcessFolder.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <climits>

namespace brimlow::platform {

namespace {

constexpr qint64 readLimit = 131'072; // bytes

bool isPlainFile(int descriptor) {
    struct stat facts {};
    return fstat(descriptor, &facts) == 0 && S_ISREG(facts.st_mode);
}

} // namespace

QByteArray ProcessFolder::read(QStringView name) const {
    const QByteArray path = QFile::encodeName(path_ + name);
    // A pipe in the process's own file system could otherwise hold us up for ever.
    const int descriptor = ::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW);
    QFile file;
    if (descriptor < 0
        || !file.open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered,
                      QFileDevice::AutoCloseHandle))
        return {};
    return isPlainFile(descriptor) ? file.read(readLimit) : QByteArray();
}

QString ProcessFolder::linkTarget(QStringView name) const {
    const QByteArray path = QFile::encodeName(path_ + name);
    std::array<char, PATH_MAX> target;
    const auto length = readlink(path.constData(), target.data(), target.size());
    return length > 0 ? QFile::decodeName(QByteArray(target.data(), length)) : QString();
}

pid_t ProcessFolder::parent() const {
    // A line break in the process's name, which comes before, is written as "\n".
    constexpr QByteArrayView key("\nPPid:\t");
    const QByteArray status = read(u"status");
    const qsizetype start = status.indexOf(key);
    if (start < 0)
        return 0;
    const QByteArrayView rest = QByteArrayView(status).sliced(start + key.size());
    return rest.first(std::max<qsizetype>(rest.indexOf('\n'), 0)).toInt();
}

} // namespace brimlow::platform
