#pragma once

#include <QByteArray>
#include <QString>

#include <sys/types.h>

#include <vector>

namespace brimlow::platform {

/// A folder of shared data; its subfolder "applications" holds desktop entries.
struct DataFolder {
    QString path; // absolute
    bool userOwned = false;
};

/// This user's data folder and the system's, those that count more first.
std::vector<DataFolder> dataFolders();

/// Tells two versions of a file apart. The time is that of the last change to the file or to its
/// attributes: unlike the time of modification nobody sets it back.
struct FileStamp {
    dev_t device = 0;
    ino_t inode = 0;
    mode_t mode = 0; // a link's own only when it leads nowhere
    off_t size = 0;
    qint64 changed = 0; // ns since 1970

    bool operator==(const FileStamp&) const = default;
};

/// What is named like a desktop entry; not necessarily a file that can be read.
struct EntryFile {
    QByteArray path;
    QString id; // desktop-file id without ".desktop"
    bool userOwned = false;
    FileStamp stamp;

    bool operator==(const EntryFile&) const = default;
};

/// All that is named "*.desktop" in the folders and below, in the order of the folders and then of
/// the ids. Reads nothing but folders; about 2 us for each file. Any thread.
std::vector<EntryFile> findEntryFiles(const std::vector<DataFolder>& folders);

} // namespace brimlow::platform
