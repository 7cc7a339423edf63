#pragma once

#include "platform/DesktopEntry.h"

#include <QHash>
#include <QSet>
#include <QStringList>

#include <vector>

namespace brimlow::platform {

/// Desktop entries as application bundles: "/Applications/<Name>.app" for those of the system,
/// "<home>/Applications/<Name>.app" for the user's own. Read-only; nothing of it is on a disk.
///
/// <Name> is the entry's untranslated name, in which "/" becomes ":". Where several entries of a
/// folder have one name, those after the first get their id behind it. Immutable, any thread.
class ApplicationBundles {
public:
    /// Both arguments outlive this object. The first entry of an id stands for all of them.
    ApplicationBundles(const std::vector<DesktopEntry>& entries, const QString& home);

    /// What a folder shows, in the order of their names; entries that menus hide are left out.
    /// Empty for a folder that does not exist.
    QStringList contents(const QString& folder) const { return folders_.value(folder); }
    bool isFolder(const QString& path) const { return folders_.contains(path); }
    /// The entry that a bundle stands for, also a hidden one; null where there is no bundle.
    const DesktopEntry* entryAt(const QString& path) const { return entries_.value(path); }
    /// Where the bundle of an application is; empty when it is not installed.
    QString pathOf(const QString& id) const { return paths_.value(id); }

private:
    void add(const DesktopEntry& shown, const DesktopEntry& effective, const QString& folder);

    QHash<QString, QStringList> folders_;
    QHash<QString, const DesktopEntry*> entries_;
    QHash<QString, QString> paths_;
    QSet<std::pair<QString, QString>> placed_; // folder and id
};

} // namespace brimlow::platform
