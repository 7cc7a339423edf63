#include "platform/simulated/SimulatedApplications.h"

#include <algorithm>

namespace brimlow::platform {

using namespace Qt::StringLiterals;

void SimulatedApplications::install(DesktopEntry entry) {
    const std::lock_guard lock(mutex_);
    if (entry.name.isEmpty())
        entry.name = entry.plainName;
    entries_.push_back(std::move(entry));
    catalogue_.reset();
}

void SimulatedApplications::remove(const QString& id) {
    const std::lock_guard lock(mutex_);
    std::erase_if(entries_, [&](const DesktopEntry& entry) { return entry.id == id; });
    catalogue_.reset();
}

std::shared_ptr<const ApplicationCatalogue> SimulatedApplications::catalogue() {
    const std::lock_guard lock(mutex_);
    if (!catalogue_) {
        auto entries = entries_;
        std::stable_partition(entries.begin(), entries.end(),
                              [](const DesktopEntry& entry) { return entry.userOwned; });
        catalogue_ = std::make_shared<const ApplicationCatalogue>(std::move(entries), home_);
    }
    return catalogue_;
}

Outcome SimulatedApplications::launch(const QString& id, Startup& startup) {
    const auto installed = catalogue();
    const auto* entry = installed->find(id);
    if (!entry)
        return Outcome::failure(u"no such application"_s);
    const QString token = startup.begin(*entry);
    if (std::exchange(failNext_, false)) {
        startup.abandon(token);
        return Outcome::failure(u"the simulated world does not start it"_s);
    }
    launches_ << id;
    return Outcome::success();
}

QImage SimulatedApplications::image(const QString& nameOrPath, int points) {
    if (nameOrPath.isEmpty())
        return {};
    QImage image(points, points, QImage::Format_ARGB32_Premultiplied);
    image.fill(static_cast<uint>(qHash(nameOrPath)) | 0xff000000U);
    return image;
}

} // namespace brimlow::platform
