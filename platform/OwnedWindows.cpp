#include "platform/OwnedWindows.h"

#include "platform/Applications.h"
#include "platform/NSBundle.h"
#include "platform/Platform.h"

#include <QHash>

#include <unistd.h>

namespace brimlow::platform {

namespace {

// By process, the installed application that it runs; null where it runs several.
using InstalledByProcess = QHash<pid_t, const DesktopEntry*>;

InstalledByProcess installedOf(const std::vector<Window>& windows,
                               const ApplicationCatalogue& catalogue) {
    InstalledByProcess result;
    for (const auto& window : windows) {
        const auto* entry = catalogue.find(window.applicationId);
        if (!entry || window.ownerPid == 0)
            continue;
        const auto known = result.find(window.ownerPid);
        if (known == result.end())
            result.insert(window.ownerPid, entry);
        else if (*known != entry)
            *known = nullptr;
    }
    return result;
}

} // namespace

std::optional<std::vector<OwnedWindow>> ownedWindows() {
    auto windows = Platform::current().session.windows().list();
    if (!windows)
        return std::nullopt;
    const auto catalogue = Platform::current().applications.catalogue();
    const auto installed = installedOf(*windows, *catalogue);
    std::vector<OwnedWindow> owned;
    owned.reserve(windows->size());
    for (auto& window : *windows) {
        const auto* host = installed.value(window.ownerPid);
        QString owner = window.applicationId;
        if (window.ownerPid == getpid())
            owner = Platform::current().mainBundle.bundleIdentifier();
        else if (host && !catalogue->find(window.applicationId))
            owner = host->id;
        owned.push_back({std::move(window), std::move(owner)});
    }
    return owned;
}

} // namespace brimlow::platform
