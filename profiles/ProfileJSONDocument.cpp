#include "profiles/ProfileJSONDocument.h"

#include "platform/AtomicFile.h"
#include "platform/RegularFile.h"

namespace brimlow {

std::optional<ProfileJSONDocument> ProfileJSONDocument::read(const QString& path) {
    auto contents = platform::readRegularFile(path, largestProfile + 1);
    if (contents.error != 0)
        return std::nullopt;
    return ProfileJSONDocument{std::move(contents.bytes)};
}

std::optional<QString> ProfileJSONDocument::write(const QString& path) const {
    return platform::replaceFile(path, data).complaint;
}

} // namespace brimlow
