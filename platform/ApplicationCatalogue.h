#pragma once

#include "platform/ApplicationBundles.h"
#include "platform/DesktopEntry.h"

#include <QHash>

#include <vector>

namespace brimlow::platform {

/// The installed applications at one moment. Immutable, so any thread may read it.
class ApplicationCatalogue {
public:
    /// `entries`: of several with one id the first is the one that counts; the others only lend
    /// their folder another name for it. `home`: the user's home folder, where the user's own
    /// applications are shown.
    ApplicationCatalogue(std::vector<DesktopEntry> entries, const QString& home);
    // The lookups point into the entries.
    ApplicationCatalogue(const ApplicationCatalogue&) = delete;
    ApplicationCatalogue& operator=(const ApplicationCatalogue&) = delete;

    // Each is null where there is none, and lives as long as the catalogue.

    const DesktopEntry* find(const QString& id) const { return byId_.value(id); }
    const DesktopEntry* findIgnoringCase(const QString& id) const;
    /// The entry that claims windows of this class; among several the one that menus show.
    const DesktopEntry* findByWmClass(const QString& wmClass) const;
    /// Also from the file of one that does not count: the one that counts.
    const DesktopEntry* findByFile(const QString& desktopFile) const;
    /// The one entry that runs this program; null also when several do.
    const DesktopEntry* findByProgram(const QString& canonicalPath) const;

    /// The entries as application bundles in folders.
    const ApplicationBundles& bundles() const { return bundles_; }
    const QString& home() const { return home_; }

private:
    using Index = QHash<QString, const DesktopEntry*>;

    std::vector<DesktopEntry> entries_;
    QString home_;
    Index byId_;
    Index byFoldedId_;
    Index byWmClass_;
    Index byFile_;
    Index byProgram_;
    ApplicationBundles bundles_;
};

} // namespace brimlow::platform
