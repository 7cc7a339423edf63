#include "platform/Applications.h"
#include "platform/Icons.h"
#include "platform/NSWorkspace.h"
#include "platform/Platform.h"

namespace brimlow::platform {

QImage NSWorkspace::iconForFile(const QString& path, int points) {
    auto& platform = Platform::current();
    const auto catalogue = platform.applications.catalogue();
    const auto* entry = catalogue->bundles().entryAt(path);
    return platform.icons.image(entry ? entry->icon : QString(), points);
}

} // namespace brimlow::platform
