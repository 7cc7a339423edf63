#include "platform/NSWorkspace.h"

#include "platform/Applications.h"
#include "platform/FileViewer.h"
#include "platform/Icons.h"
#include "platform/Platform.h"
#include "platform/Streams.h"
#include "platform/SystemSettings.h"

namespace brimlow::platform {

using namespace Qt::StringLiterals;

std::optional<QString>
NSWorkspace::URLForApplicationWithBundleIdentifier(const QString& identifier) {
    const QString path = Platform::current().applications.catalogue()->bundles().pathOf(identifier);
    return path.isEmpty() ? std::nullopt : std::optional(path);
}

void NSWorkspace::openApplicationAtURL(const QString& path) {
    auto& platform = Platform::current();
    const auto catalogue = platform.applications.catalogue();
    const auto* entry = catalogue->bundles().entryAt(path);
    if (!entry)
        return;
    const auto running = NSRunningApplication::runningApplicationsWithBundleIdentifier(entry->id);
    if (!running.empty() && running.front().activateWithOptions())
        return;
    if (const auto outcome = platform.applications.launch(entry->id, platform.session.startup());
        !outcome)
        printErrorLine(u"Brimlow: \"%1\" cannot be started: %2"_s.arg(entry->name, outcome.reason));
}

bool NSWorkspace::openURL(const QString& address) {
    const auto pane = settingsPane(address);
    if (pane)
        Platform::current().systemSettings.open(*pane);
    return pane.has_value();
}

void NSWorkspace::activateFileViewerSelecting(const QString& path) {
    Platform::current().fileViewer.reveal(path);
}

QImage NSWorkspace::iconForFile(const QString& path, int points) {
    auto& platform = Platform::current();
    const auto catalogue = platform.applications.catalogue();
    const auto* entry = catalogue->bundles().entryAt(path);
    return platform.icons.image(entry ? entry->icon : QString(), points);
}

} // namespace brimlow::platform
