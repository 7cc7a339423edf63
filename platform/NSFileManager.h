#pragma once

#include <QStringList>

#include <optional>

namespace brimlow::platform {

/// The file system as far as it shows installed applications: folders with application bundles in
/// them, read-only. A bundle counts as a directory with nothing in it; nothing else exists. Any
/// thread.
class NSFileManager {
public:
    /// Names, sorted; absent for what does not exist.
    static std::optional<QStringList> contentsOfDirectory(const QString& path);
    static bool fileExists(const QString& path);
    static bool fileExists(const QString& path, bool& isDirectory);
    static QString homeDirectoryForCurrentUser();
};

} // namespace brimlow::platform
