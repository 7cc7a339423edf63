#include "platform/linux/applications/GioApplications.h"

#include "platform/Streams.h"
#include "platform/linux/applications/EntryLaunch.h"
#include "platform/linux/applications/EntrySnapshot.h"

namespace brimlow::platform {

using namespace Qt::StringLiterals;

GioApplications::GioApplications(std::vector<DataFolder> folders,
                                 std::chrono::milliseconds validity)
    : folders_(std::move(folders)), validity_(validity) {}

GioApplications::~GioApplications() = default;

std::shared_ptr<const ApplicationCatalogue> GioApplications::catalogue() {
    std::unique_lock lock(mutex_);
    const Time now = std::chrono::steady_clock::now();
    const Snapshot earlier = snapshot_;
    if (earlier && now < validUntil_)
        return earlier->catalogue();
    const long number = ++begun_;
    validUntil_ = now + validity_;
    lock.unlock();

    auto files = findEntryFiles(folders_);
    if (earlier && earlier->stillHolds(files))
        return earlier->catalogue();
    const auto fresh = std::make_shared<const EntrySnapshot>(std::move(files), earlier.get());
    publish(fresh, number);
    return fresh->catalogue();
}

void GioApplications::publish(const Snapshot& snapshot, long number) {
    std::unique_lock lock(mutex_);
    if (number < published_)
        return;
    published_ = number;
    const Snapshot earlier = std::exchange(snapshot_, snapshot);
    lock.unlock();
    for (const auto& line : snapshot->newComplaints(earlier.get()))
        printErrorLine(line);
}

Outcome GioApplications::launch(const QString& id, Startup& startup) {
    const auto installed = catalogue();
    const auto* entry = installed->find(id);
    return entry ? launchEntry(*entry, startup)
                 : Outcome::failure(u"no application has that identifier"_s);
}

} // namespace brimlow::platform
