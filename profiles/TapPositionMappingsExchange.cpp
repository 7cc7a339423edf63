// Profiles from and to files that people send each other.

#include "platform/Clock.h"
#include "platform/Platform.h"
#include "profiles/BlankTrimming.h"
#include "profiles/ProfileImportError.h"
#include "profiles/ProfileJSONDocument.h"
#include "profiles/StrictJson.h"
#include "profiles/TapPositionMappings.h"

#include <QSet>

namespace brimlow {

using namespace Qt::StringLiterals;

std::optional<QByteArray> TapPositionMappings::exportActiveProfileData() const {
    const TapProfile* active = activeProfile();
    if (!active)
        return std::nullopt;
    const ProfileExport exported{
        .format = ProfileExport::currentFormat.toString(),
        .version = ProfileExport::currentVersion,
        .exportedAt = platform::Platform::current().clock.wallClock(),
        .profile = *active,
    };
    return exported.bytes();
}

ProfileExport TapPositionMappings::decodeExport(const QByteArray& data) {
    // The structure first: of a file that we cannot read, its version means nothing to us.
    auto decoded = data.size() <= ProfileJSONDocument::largestProfile
                       ? ProfileExport::fromJson(json::strictlyParsed(data))
                       : std::nullopt;
    if (!decoded)
        throw ProfileImportError::unreadable();
    if (decoded->format != ProfileExport::currentFormat)
        throw ProfileImportError::notABrimlowProfile();
    if (decoded->version > ProfileExport::currentVersion)
        throw ProfileImportError::tooNew(decoded->version);
    return std::move(*decoded);
}

bool TapPositionMappings::canDecodeProfile(const QByteArray& data) const {
    try {
        decodeExport(data);
        return true;
    } catch (const ProfileImportError&) {
        return false;
    }
}

std::vector<TapPositionMapping>
TapPositionMappings::sanitizeForImport(std::vector<TapPositionMapping> bindings) {
    for (TapPositionMapping& binding : bindings) {
        binding.id = QUuid::createUuid();
        binding.targetWindowID.reset();
    }
    return bindings;
}

QString TapPositionMappings::uniqueProfileName(const QString& base) const {
    const QStringView trimmed = trimmedBlanks(base);
    const QString name = trimmed.isEmpty() ? u"Imported"_s : trimmed.toString();
    QSet<QString> taken;
    for (const TapProfile& profile : profiles.get())
        taken.insert(profile.name);
    QString candidate = name;
    for (int number = 2; taken.contains(candidate); ++number)
        candidate = name + u' ' + QString::number(number);
    return candidate;
}

QUuid TapPositionMappings::importProfile(const QByteArray& data, bool asNewProfile) {
    ProfileExport imported = decodeExport(data);
    auto bindings = sanitizeForImport(std::move(imported.profile.bindings));
    if (asNewProfile)
        return addActiveProfile(uniqueProfileName(imported.profile.name), std::move(bindings));
    editActiveBindings([&](auto& edited) { edited = std::move(bindings); });
    return activeProfileId;
}

} // namespace brimlow
