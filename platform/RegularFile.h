#pragma once

#include <QByteArray>
#include <QString>

#include <limits>

namespace brimlow::platform {

struct FileContents {
    QByteArray bytes = {};
    int error = 0; // errno, with no bytes; 0: all went well
};

/// Reads the regular file at `path`, but no more than `most` bytes. A folder is EISDIR; a pipe, a
/// socket or a device is EINVAL, and is not waited for. Of a file that shrinks meanwhile, what is
/// left. Any thread.
FileContents readRegularFile(const QString& path,
                             qsizetype most = std::numeric_limits<qsizetype>::max());

/// What the C library says about an errno ("No space left on device").
QString messageOf(int error);

} // namespace brimlow::platform
