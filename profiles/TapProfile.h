#pragma once

#include "profiles/TapPositionMapping.h"

namespace brimlow {

/// A named set of bindings. Their order is what the user sees, and settles ties between them.
struct TapProfile {
    QUuid id; // never changes once made
    QString name;
    std::vector<TapPositionMapping> bindings;

    bool operator==(const TapProfile&) const = default;

    void write(json::Writer& writer) const;
    /// All three members are required, and one binding that fails fails the profile.
    static std::optional<TapProfile> fromJson(const QJsonValue& value, json::DateStrategy dates);
};

} // namespace brimlow
