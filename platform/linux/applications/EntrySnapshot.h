#pragma once

#include "platform/ApplicationCatalogue.h"
#include "platform/linux/applications/DesktopEntryReader.h"

#include <QStringList>

#include <memory>
#include <vector>

namespace brimlow::platform {

/// What the desktop entries were at one moment. Immutable, so any thread may read it.
class EntrySnapshot {
public:
    /// Reads the files, except those that `earlier` (which may be null) has in the same version.
    EntrySnapshot(std::vector<EntryFile> files, const EntrySnapshot* earlier);

    /// Whether reading these files would give the same.
    bool stillHolds(const std::vector<EntryFile>& files) const;
    const std::shared_ptr<const ApplicationCatalogue>& catalogue() const { return catalogue_; }
    /// What is broken and was not in `earlier`, which may be null: a line for each.
    QStringList newComplaints(const EntrySnapshot* earlier) const;

private:
    std::vector<DesktopEntry> effectiveEntries() const;

    std::vector<EntryFile> files_;
    std::vector<EntryReading> readings_; // as many
    std::shared_ptr<const ApplicationCatalogue> catalogue_;
};

} // namespace brimlow::platform
