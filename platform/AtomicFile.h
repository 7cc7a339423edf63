#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace brimlow::platform {

struct Replacement {
    bool done; // or else the old file is as it was
    /// In one clause ("No space left on device"); none: all is well.
    std::optional<QString> complaint;
};

/// Replaces the file at `path` whole: whoever reads it, also after a crash or a power cut, finds
/// the old bytes or the new ones, and the new ones once this has returned without a complaint. A
/// file system that cannot synchronise is complained about when the replacement is done. Makes
/// missing folders and follows a symbolic link. The file's `permissions` are those of a new one,
/// less what the process's mask takes away.
///
/// The new bytes are first gathered in ".<file name>.brimlow-new" beside the file, of a long name
/// only its beginning. That name is fixed so that crashes leave no more than one behind; so a path
/// must have one writer at a time. Any thread.
[[nodiscard]] Replacement replaceFile(const QString& path, const QByteArray& contents,
                                      unsigned permissions = 0600);

/// What a chain of symbolic links at `path` ends in, whether it exists or not; `path` itself where
/// that is no link. Any thread.
QString symbolicLinkTarget(const QString& path);

} // namespace brimlow::platform
