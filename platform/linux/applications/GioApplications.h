#pragma once

#include "platform/Applications.h"
#include "platform/linux/applications/EntryFiles.h"

#include <mutex>

namespace brimlow::platform {

class EntrySnapshot;

/// The desktop entries of this machine, read and started by way of GIO. Nothing is watched: each
/// question looks whether files have changed, and reads those that have.
///
/// An entry that is broken is skipped with one line on the log for each version of its file. A
/// Platform must exist by the first question.
class GioApplications final : public Applications {
public:
    explicit GioApplications(std::vector<DataFolder> folders = dataFolders());
    ~GioApplications() override;

    std::shared_ptr<const ApplicationCatalogue> catalogue() override;
    Outcome launch(const QString& id, Startup& startup) override;

private:
    using Snapshot = std::shared_ptr<const EntrySnapshot>;

    /// Ordered by when they looked, so that a slow one does not bring back what has gone.
    void publish(const Snapshot& snapshot, long number);

    const std::vector<DataFolder> folders_;
    std::mutex mutex_; // never held while anything is read or written
    Snapshot snapshot_;
    long published_ = 0;
    long begun_ = 0;
};

} // namespace brimlow::platform
