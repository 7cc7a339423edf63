#pragma once

#include "profiles/TapProfile.h"

namespace brimlow {

/// What a profile file holds: one profile as it stands in the store, and what says that the file is
/// ours. A plain value.
struct ProfileExport {
    QString format = {}; // `currentFormat` in every file of ours
    qint64 version = 0;  // of the file's form
    platform::Date exportedAt = {};
    TapProfile profile = {};

    static constexpr QStringView currentFormat = u"brimlow.profile";
    static constexpr qint64 currentVersion = 1;

    bool operator==(const ProfileExport&) const = default;

    /// The file, pretty-printed with sorted keys, dates in whole seconds UTC; none where a number
    /// or a date cannot be written.
    std::optional<QByteArray> bytes() const;
    /// None if a member is missing or ill-typed, whatever format and version say.
    static std::optional<ProfileExport> fromJson(const QJsonValue& value);
};

} // namespace brimlow
