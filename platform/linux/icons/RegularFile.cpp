#include "platform/linux/icons/RegularFile.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>

namespace brimlow::platform {

QByteArray readRegularFile(const QString& path, qint64 limit) {
    const int descriptor =
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    QFile file;
    if (descriptor < 0 || !file.open(descriptor, QIODevice::ReadOnly, QFile::AutoCloseHandle))
        return {};
    struct stat facts {};
    if (::fstat(descriptor, &facts) != 0 || !S_ISREG(facts.st_mode) || facts.st_size > limit)
        return {};
    return file.read(facts.st_size);
}

} // namespace brimlow::platform
