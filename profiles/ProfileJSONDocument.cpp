#include "profiles/ProfileJSONDocument.h"

#include "platform/AtomicFile.h"
#include "platform/RegularFile.h"

namespace brimlow {

namespace {

/// Somebody else may read it, unlike our own files, unless the user's mask says otherwise.
constexpr unsigned permissionsOfShared = 0666;

} // namespace

std::optional<ProfileJSONDocument> ProfileJSONDocument::read(const QString& path) {
    auto contents = platform::readRegularFile(path, largestProfile + 1);
    if (contents.error != 0)
        return std::nullopt;
    return ProfileJSONDocument{std::move(contents.bytes)};
}

std::optional<QString> ProfileJSONDocument::write(const QString& path) const {
    return platform::replaceFile(path, data, permissionsOfShared).complaint;
}

} // namespace brimlow
