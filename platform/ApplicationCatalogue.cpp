#include "platform/ApplicationCatalogue.h"

#include <algorithm>

namespace brimlow::platform {

namespace {

// The first to claim a key keeps it; whether this one did.
bool claim(QHash<QString, const DesktopEntry*>& index, const QString& key,
           const DesktopEntry& entry) {
    if (index.contains(key))
        return false;
    index.insert(key, &entry);
    return true;
}

} // namespace

ApplicationCatalogue::ApplicationCatalogue(std::vector<DesktopEntry> entries, const QString& home)
    : entries_(std::move(entries)), home_(home), bundles_(entries_, home_) {
    std::vector<const DesktopEntry*> inOrder;
    for (const auto& entry : entries_) {
        if (claim(byId_, entry.id, entry))
            inOrder.push_back(&entry);
        claim(byFile_, entry.file, *find(entry.id));
    }
    // Those that menus show come before the others.
    std::stable_partition(inOrder.begin(), inOrder.end(),
                          [](const auto* entry) { return entry->listed; });
    for (const auto* entry : inOrder) {
        claim(byFoldedId_, entry->id.toCaseFolded(), *entry);
        if (!entry->startupWmClass.isEmpty())
            claim(byWmClass_, entry->startupWmClass, *entry);
        // A program that runs several applications tells nothing of which.
        if (!entry->program.isEmpty() && !claim(byProgram_, entry->program, *entry))
            byProgram_[entry->program] = nullptr;
    }
}

const DesktopEntry* ApplicationCatalogue::findIgnoringCase(const QString& id) const {
    const auto* exact = find(id);
    return exact ? exact : byFoldedId_.value(id.toCaseFolded());
}

const DesktopEntry* ApplicationCatalogue::findByWmClass(const QString& wmClass) const {
    return byWmClass_.value(wmClass);
}

const DesktopEntry* ApplicationCatalogue::findByFile(const QString& desktopFile) const {
    return byFile_.value(desktopFile);
}

const DesktopEntry* ApplicationCatalogue::findByProgram(const QString& canonicalPath) const {
    return byProgram_.value(canonicalPath);
}

} // namespace brimlow::platform
