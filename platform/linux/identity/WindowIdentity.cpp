#include "platform/linux/identity/WindowIdentity.h"

#include "platform/linux/identity/ProcessEvidence.h"

namespace brimlow::platform {

namespace {

const DesktopEntry* entryOfWindow(const WindowEvidence& evidence,
                                  const ApplicationCatalogue& catalogue) {
    if (const auto* stated = catalogue.findIgnoringCase(evidence.statedId))
        return stated;
    // The instance is the more particular: a browser's web application has the class of the browser
    // and an instance of its own.
    if (const auto* claimed = catalogue.findByWmClass(evidence.instance))
        return claimed;
    if (const auto* claimed = catalogue.findByWmClass(evidence.className))
        return claimed;
    if (const auto* named = catalogue.findIgnoringCase(evidence.instance))
        return named;
    return catalogue.findIgnoringCase(evidence.className);
}

// The id, where the same application has another file now: the user's own entry instead of the
// system's, for one.
const DesktopEntry* entryOfFile(const QString& file, const ApplicationCatalogue& catalogue) {
    if (file.isEmpty())
        return nullptr;
    const auto* exact = catalogue.findByFile(file);
    return exact ? exact : catalogue.find(idOfDesktopFile(file));
}

const DesktopEntry* entryOfProcess(ProcessEvidence process, const ApplicationCatalogue& catalogue) {
    if (const auto* launched = entryOfFile(process.launchedDesktopFile(), catalogue))
        return launched;
    if (const auto* scoped = catalogue.find(process.unitApplication()))
        return scoped;
    if (const auto* flatpak = catalogue.find(process.flatpakApplication()))
        return flatpak;
    if (const auto* hinted = entryOfFile(process.hintedDesktopFile(), catalogue))
        return hinted;
    if (const auto* snap = catalogue.find(process.snapApplication()))
        return snap;
    return catalogue.findByProgram(process.program());
}

} // namespace

QString applicationIdOf(const WindowEvidence& evidence, const ApplicationCatalogue& catalogue,
                        const QString& procFolder) {
    const auto* entry = entryOfWindow(evidence, catalogue);
    if (!entry && evidence.pid > 0)
        entry = entryOfProcess(ProcessEvidence(evidence.pid, procFolder), catalogue);
    if (entry)
        return entry->id;
    if (!evidence.statedId.isEmpty())
        return evidence.statedId;
    return evidence.className.isEmpty() ? evidence.instance : evidence.className;
}

} // namespace brimlow::platform
