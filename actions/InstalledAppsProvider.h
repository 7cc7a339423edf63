#pragma once

#include "actions/InstalledApp.h"
#include "platform/Observable.h"

#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

namespace brimlow {

/// The catalogue of installed applications. It is read on a thread of Qt's global pool, which has
/// to be idle before the current Platform goes. Main thread.
class InstalledAppsProvider final : public platform::ObservableObject,
                                    public std::enable_shared_from_this<InstalledAppsProvider> {
public:
    static std::shared_ptr<InstalledAppsProvider> make();

    /// One for each identifier, sorted by name. While a scan runs this is the last one's result.
    platform::Published<std::vector<InstalledApp>> apps{*this};
    platform::Published<bool> isLoading{*this, false};

    /// The folders to scan. Of applications that have one identifier the last one found counts.
    /// Any thread.
    static const QStringList& scanRoots();

    /// Starts a scan and returns at once. Scans that overlap publish one after the other. A scan
    /// that runs keeps this object alive.
    void reload();

private:
    InstalledAppsProvider() = default;

    static std::vector<InstalledApp> scan(const QStringList& roots);
    static std::optional<InstalledApp> makeApp(const QString& path);
};

} // namespace brimlow
