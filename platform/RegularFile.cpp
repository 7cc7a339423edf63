#include "platform/RegularFile.h"

#include "platform/FileDescriptor.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

namespace brimlow::platform {

namespace {

/// 0, or the errno that tells why this is not for reading.
int whyUnreadable(const struct stat& status) {
    if (S_ISREG(status.st_mode))
        return 0;
    return S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
}

FileContents readAll(const FileDescriptor& file, qsizetype sizeHint, qsizetype most) {
    constexpr qsizetype step = 65'536; // beyond the hint: the file grows, or tells no size
    QByteArray bytes;
    qsizetype size = 0;
    while (size < most) {
        const qsizetype room = size < sizeHint ? sizeHint - size : step;
        bytes.resize(size + std::min(room, most - size));
        const auto count =
            ::read(file.get(), bytes.data() + size, static_cast<std::size_t>(bytes.size() - size));
        if (count == 0)
            break;
        if (count < 0 && errno != EINTR)
            return {.error = errno};
        size += std::max<qsizetype>(count, 0);
    }
    bytes.truncate(size);
    return {.bytes = bytes};
}

} // namespace

FileContents readRegularFile(const QString& path, qsizetype most) {
    // Not blocking: a pipe without a writer would keep us for ever.
    const FileDescriptor file(
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat status {};
    if (!file || ::fstat(file.get(), &status) != 0)
        return {.error = errno};
    if (const int error = whyUnreadable(status))
        return {.error = error};
    return readAll(file, status.st_size, most);
}

QString messageOf(int error) {
    return QString::fromStdString(std::generic_category().message(error));
}

} // namespace brimlow::platform
