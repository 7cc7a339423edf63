#pragma once

#include <QByteArray>
#include <QString>

namespace brimlow::platform {

// What cannot be read is kept for the user under "<path>.damaged-20260102T030405Z", the time
// being UTC and now; in a second that has one already, "-2", "-3" and so on follow. Nothing that
// exists is ever overwritten. Both return where it is now, or nothing (a null text) where it could
// not be kept. Main thread.

/// Renames the file at `path`; a symbolic link stays and its target is renamed.
QString moveAsideAsDamaged(const QString& path);

/// Writes `contents` to such a file.
QString keepAsDamaged(const QString& path, const QByteArray& contents);

} // namespace brimlow::platform
