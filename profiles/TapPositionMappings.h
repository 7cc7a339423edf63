#pragma once

#include "platform/NSUserDefaults.h"
#include "profiles/ProfileExport.h"
#include "profiles/SavedProperty.h"
#include "profiles/TapProfile.h"

#include <functional>
#include <optional>
#include <vector>

namespace brimlow {

/// All profiles of the user and the choice of the active one, kept in the preferences. There is
/// always a profile, and `activeProfileId` names one. Observers are told before each change; each
/// assignment of a property is in the preferences when it returns. Main thread only.
class TapPositionMappings : public platform::ObservableObject {
public:
    static constexpr QStringView profilesKey = u"tapProfiles.v1";       // data
    static constexpr QStringView activeKey = u"tapActiveProfileId.v1";  // text
    static constexpr QStringView legacyKey = u"tapPositionMappings.v1"; // data, never written

    /// Loads the profiles; or takes over the single list of bindings that earlier versions kept; or
    /// begins with one profile of `defaultSeedCount` default spots. `defaults` outlives this.
    TapPositionMappings(int defaultSeedCount, platform::NSUserDefaults& defaults);

    SavedProperty<std::vector<TapProfile>> profiles;
    SavedProperty<QUuid> activeProfileId;

    /// Null where no profile has the active id. Valid until `profiles` next changes.
    const TapProfile* activeProfile() const;

    /// Does nothing for an unknown id.
    void switchTo(const QUuid& profileId);

    // The bindings of the active profile.
    void add(const TapPositionMapping& binding);
    /// Replaces the binding with the same id; does nothing where there is none.
    void update(const TapPositionMapping& binding);
    void remove(const QUuid& id);
    void resetToDefaultLayout(int count);
    void clearAllBindings();

    /// Makes it active as well. A blank name becomes "Untitled"; names need not differ.
    QUuid createProfile(const QString& name);
    /// Does nothing for a blank name or an unknown id.
    void renameProfile(const QUuid& id, const QString& name);
    /// A fresh default profile takes the place of the last one.
    void removeProfile(QUuid id);

    /// The binding of the active profile that a tap at (x, y) means: of those with a sample within
    /// their radius, the one whose samples' centre is nearest, the first of equals.
    std::optional<TapPositionMapping> match(double x, double y) const;
    /// Whether any binding of the active profile has a sample.
    bool hasAnyRecorded() const;

    /// The contents of a file that holds the active profile; none where a number or a date in it
    /// cannot be written.
    std::optional<QByteArray> exportActiveProfileData() const;
    /// Whether `importProfile` would take `data`.
    bool canDecodeProfile(const QByteArray& data) const;
    /// Takes the bindings of such a file: with new ids, and without the numbers of windows, which
    /// mean nothing here. They become a new, active profile under a name that nobody has, or
    /// replace those of the active profile. Returns the id of that profile. Throws
    /// ProfileImportError, having changed nothing.
    QUuid importProfile(const QByteArray& data, bool asNewProfile);

private:
    struct Contents {
        std::vector<TapProfile> profiles;
        QUuid activeProfileId;
        bool stored; // as it is, so that nothing needs to be written
    };

    TapPositionMappings(platform::NSUserDefaults& defaults, Contents contents);

    static ProfileExport decodeExport(const QByteArray& data);
    static std::vector<TapPositionMapping>
    sanitizeForImport(std::vector<TapPositionMapping> bindings);
    QString uniqueProfileName(const QString& base) const;

    static Contents load(int defaultSeedCount, platform::NSUserDefaults& defaults);
    std::optional<std::size_t> activeProfileIndex() const;
    QUuid addActiveProfile(const QString& name, std::vector<TapPositionMapping> bindings);
    void editActiveBindings(const std::function<void(std::vector<TapPositionMapping>&)>& edit);
    void saveProfiles();
    void saveActive();

    platform::NSUserDefaults& defaults_;
};

} // namespace brimlow
