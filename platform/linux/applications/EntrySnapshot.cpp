#include "platform/linux/applications/EntrySnapshot.h"

#include "platform/linux/applications/Programs.h"

#include <QDir>
#include <QFile>
#include <QHash>

#include <algorithm>

namespace brimlow::platform {

using namespace Qt::StringLiterals;

namespace {

bool programHasCome(const EntryReading& reading) {
    return !reading.missingProgram.isEmpty() && !findProgram(reading.missingProgram).isEmpty();
}

/// One line of text, whatever the file is called.
QString complaintLine(const EntryFile& file, const QString& reason) {
    QString line = u"Brimlow: the desktop entry \"%1\" is skipped: %2"_s.arg(
        QFile::decodeName(file.path), reason);
    std::ranges::replace_if(
        line, [](QChar character) { return character.category() == QChar::Other_Control; }, u' ');
    return line;
}

} // namespace

EntrySnapshot::EntrySnapshot(std::vector<EntryFile> files, const EntrySnapshot* earlier)
    : files_(std::move(files)) {
    QHash<QByteArray, std::pair<const EntryFile*, const EntryReading*>> known;
    for (std::size_t i = 0; earlier && i < earlier->files_.size(); ++i)
        known.insert(earlier->files_[i].path, {&earlier->files_[i], &earlier->readings_[i]});
    readings_.reserve(files_.size());
    for (const auto& file : files_) {
        const auto [knownFile, reading] = known.value(file.path);
        const bool same = knownFile && *knownFile == file && !programHasCome(*reading);
        readings_.push_back(same ? *reading : readEntry(file));
    }
    catalogue_ = std::make_shared<const ApplicationCatalogue>(effectiveEntries(), QDir::homePath());
}

bool EntrySnapshot::stillHolds(const std::vector<EntryFile>& files) const {
    return files == files_ && std::ranges::none_of(readings_, programHasCome);
}

// A file that stands for no application hides those of its id in the folders after it.
std::vector<DesktopEntry> EntrySnapshot::effectiveEntries() const {
    std::vector<DesktopEntry> entries;
    QHash<QString, bool> firstIsThere;
    for (std::size_t i = 0; i < files_.size(); ++i) {
        const auto& entry = readings_[i].entry;
        const QString& id = files_[i].id;
        if (!firstIsThere.contains(id))
            firstIsThere.insert(id, entry.has_value());
        if (entry && firstIsThere.value(id))
            entries.push_back(*entry);
    }
    return entries;
}

QStringList EntrySnapshot::newComplaints(const EntrySnapshot* earlier) const {
    QHash<QByteArray, FileStamp> told;
    for (std::size_t i = 0; earlier && i < earlier->files_.size(); ++i) {
        if (!earlier->readings_[i].complaint.isEmpty())
            told.insert(earlier->files_[i].path, earlier->files_[i].stamp);
    }
    QStringList lines;
    for (std::size_t i = 0; i < files_.size(); ++i) {
        const auto& [path, id, userOwned, stamp] = files_[i];
        const bool old = told.contains(path) && told.value(path) == stamp;
        if (!readings_[i].complaint.isEmpty() && !old)
            lines << complaintLine(files_[i], readings_[i].complaint);
    }
    return lines;
}

} // namespace brimlow::platform
