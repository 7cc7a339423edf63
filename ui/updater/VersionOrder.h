#pragma once

#include <QString>

#include <compare>

namespace brimlow {

/// Orders versions by age, older ones first. Numbers between dots count as numbers of any length
/// (1.10 is newer than 1.9) and missing ones as 0. What follows them marks a pre-release, which is
/// older than its release: 2.0-beta.2 < 2.0-beta.10 < 2.0rc1 < 2.0. A "v" in front and what stands
/// behind a "+" say nothing. A text without any number is older than every release but 0. Pure; any
/// thread.
std::weak_ordering compareVersions(const QString& first, const QString& second);

} // namespace brimlow
