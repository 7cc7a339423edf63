#pragma once

#include "platform/Applications.h"
#include "platform/Icons.h"

#include <QStringList>

#include <mutex>

namespace brimlow::platform {

/// A described set of installed applications, with a journal of what was started.
class SimulatedApplications final : public Applications, public Icons {
public:
    explicit SimulatedApplications(QString home) : home_(std::move(home)) {}

    // The world's verbs.

    /// `entry.id` and `entry.plainName` are enough; the translated name follows the plain one.
    void install(DesktopEntry entry);
    void remove(const QString& id);
    void failNextLaunch() { failNext_ = true; }
    /// The ids that were started since the last call, in order.
    QStringList takeLaunches() { return std::exchange(launches_, {}); }

    std::shared_ptr<const ApplicationCatalogue> catalogue() override;
    Outcome launch(const QString& id, Startup& startup) override;
    /// One colour for each name, null for an empty name.
    QImage image(const QString& nameOrPath, int points) override;

private:
    QString home_;
    std::mutex mutex_;
    std::vector<DesktopEntry> entries_;
    std::shared_ptr<const ApplicationCatalogue>
        catalogue_; // of the entries; null when they changed
    bool failNext_ = false;
    QStringList launches_;
};

} // namespace brimlow::platform
