#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace brimlow {

/// The contents of a profile file on their way between a file dialog and the store, which alone
/// looks into them. A plain value. Any thread.
struct ProfileJSONDocument {
    QByteArray data = {};

    /// MIME types, for the dialogs.
    static constexpr QStringView readableContentType = u"application/json";
    static constexpr QStringView writableContentType = u"application/json";

    /// No profile is larger: this is room for some 30,000 bindings. Bounds the memory and the time
    /// that a file from anywhere may cost.
    static constexpr qsizetype largestProfile = 32 << 20; // bytes

    /// The contents of the regular file at `path`; of one that is larger than any profile only so
    /// much that the store sees it. None where there is no such file, where it is a folder, a pipe
    /// or a device, or where reading fails. Never waits for another process.
    static std::optional<ProfileJSONDocument> read(const QString& path);

    /// Replaces the file at `path` whole, or leaves it as it was and says in one clause why.
    [[nodiscard]] std::optional<QString> write(const QString& path) const;
};

} // namespace brimlow
