#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace brimlow::platform {

/// Replaces the file at `path` whole: whoever reads it, also after a crash or a power cut, finds
/// the old bytes or the new ones, and the new ones once this has returned success. Makes missing
/// folders, follows a symbolic link, and leaves the file readable by its owner only.
///
/// The new bytes are first gathered in ".<file name>.brimlow-new" beside the file. That name is
/// fixed so that crashes leave no more than one behind; so a path must have one writer at a time.
///
/// Returns nothing on success, or in one clause why not ("No space left on device"); then the old
/// file is as it was, unless only its folder could not be synchronised. Any thread.
[[nodiscard]] std::optional<QString> replaceFile(const QString& path, const QByteArray& contents);

/// What a chain of symbolic links at `path` ends in, whether it exists or not; `path` itself where
/// that is no link. Any thread.
QString symbolicLinkTarget(const QString& path);

} // namespace brimlow::platform
