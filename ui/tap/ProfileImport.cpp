#include "ui/tap/ProfileImport.h"

#include "profiles/ProfileImportError.h"
#include "profiles/ProfileJSONDocument.h"
#include "profiles/TapPositionMappings.h"

namespace brimlow {

std::optional<QString> importProfileFile(TapPositionMappings& store, const QString& path) {
    const auto document = ProfileJSONDocument::read(path);
    if (!document)
        return QStringLiteral("Couldn't read that file.");
    try {
        store.importProfile(document->data, true);
        return std::nullopt;
    } catch (const ProfileImportError& error) {
        return error.errorDescription();
    }
}

} // namespace brimlow
