#pragma once

#include <QByteArray>
#include <QString>

namespace brimlow::platform {

/// The bytes of a regular file. Empty for what cannot be read, for more than `limit` bytes, and for
/// anything else that has a name: opening a pipe waits for nobody. Any thread.
QByteArray readRegularFile(const QString& path, qint64 limit);

} // namespace brimlow::platform
