#pragma once

#include "platform/Applications.h"
#include "platform/linux/applications/EntryFiles.h"

#include <chrono>
#include <mutex>

namespace brimlow::platform {

class EntrySnapshot;

/// The desktop entries of this machine, read and started by way of GIO. Nothing is watched: a
/// question looks whether files have changed, and reads those that have. Looking costs about a
/// millisecond for 500 entries, so the answer holds for a moment: one scan or one action asks many
/// times.
///
/// An entry that is broken is skipped with one line on the log for each version of its file. A
/// Platform must exist by the first question.
class GioApplications final : public Applications {
public:
    static constexpr std::chrono::milliseconds moment{100};

    /// `validity`: how long an answer holds without another look.
    explicit GioApplications(std::vector<DataFolder> folders = dataFolders(),
                             std::chrono::milliseconds validity = moment);
    ~GioApplications() override;

    std::shared_ptr<const ApplicationCatalogue> catalogue() override;
    Outcome launch(const QString& id, Startup& startup) override;

private:
    using Snapshot = std::shared_ptr<const EntrySnapshot>;

    /// Ordered by when they looked, so that a slow one does not bring back what has gone.
    void publish(const Snapshot& snapshot, long number);

    using Time = std::chrono::steady_clock::time_point;

    const std::vector<DataFolder> folders_;
    const std::chrono::milliseconds validity_;
    std::mutex mutex_; // never held while anything is read or written
    Snapshot snapshot_;
    Time validUntil_;
    long published_ = 0;
    long begun_ = 0;
};

} // namespace brimlow::platform
