#include "platform/linux/applications/EntryFiles.h"

#include <QFile>

#include <dirent.h>
#include <fcntl.h>
#include <glib.h>
#include <sys/stat.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <string_view>
#include <tuple>

namespace brimlow::platform {

using namespace Qt::StringLiterals;

namespace {

constexpr std::string_view suffix = ".desktop";

struct CloseFolder {
    void operator()(DIR* folder) const { closedir(folder); }
};
using FolderPointer = std::unique_ptr<DIR, CloseFolder>;

FileStamp stampOf(const struct stat& status) {
    return {status.st_dev, status.st_ino, status.st_mode, status.st_size,
            status.st_ctim.tv_sec * qint64(1'000'000'000) + status.st_ctim.tv_nsec};
}

/// One walk through an "applications" folder.
class Walk {
public:
    Walk(bool userOwned, std::vector<EntryFile>& found) : userOwned_(userOwned), found_(found) {}

    void into(const QByteArray& path, const QString& idPrefix) {
        const FolderPointer folder(opendir(path.constData()));
        struct stat own {};
        if (!folder || fstat(dirfd(folder.get()), &own) != 0)
            return;
        const std::pair identity(own.st_dev, own.st_ino);
        if (std::ranges::find(above_, identity) != above_.end())
            return; // a link back to where we came from
        above_.push_back(identity);
        while (const dirent* item = readdir(folder.get()))
            look(folder.get(), *item, path, idPrefix);
        above_.pop_back();
    }

private:
    void look(DIR* folder, const dirent& item, const QByteArray& path, const QString& idPrefix) {
        const std::string_view name = item.d_name;
        if (name.starts_with('.')) // also what editors leave behind while they write
            return;
        const bool named = name.ends_with(suffix);
        if (!named && item.d_type == DT_REG)
            return;
        struct stat status {};
        if (fstatat(dirfd(folder), item.d_name, &status, 0) != 0
            && fstatat(dirfd(folder), item.d_name, &status, AT_SYMLINK_NOFOLLOW) != 0)
            return; // it has gone
        const QByteArray itemPath = path + '/' + item.d_name;
        const QString id = idPrefix + QFile::decodeName(item.d_name);
        if (named)
            found_.push_back(
                {itemPath, id.chopped(qsizetype(suffix.size())), userOwned_, stampOf(status)});
        else if (S_ISDIR(status.st_mode))
            into(itemPath, id + u'-');
    }

    bool userOwned_;
    std::vector<EntryFile>& found_;
    std::vector<std::pair<dev_t, ino_t>> above_;
};

} // namespace

std::vector<DataFolder> dataFolders() {
    std::vector<DataFolder> folders = {{QFile::decodeName(g_get_user_data_dir()), true}};
    for (const char* const* each = g_get_system_data_dirs(); *each; ++each)
        folders.push_back({QFile::decodeName(*each), false});
    return folders;
}

std::vector<EntryFile> findEntryFiles(const std::vector<DataFolder>& folders) {
    std::vector<EntryFile> found;
    for (const auto& folder : folders) {
        const auto before = std::ssize(found);
        Walk(folder.userOwned, found)
            .into(QFile::encodeName(folder.path) + "/applications", QString());
        std::ranges::sort(found.begin() + before, found.end(), {},
                          [](const EntryFile& file) { return std::tie(file.id, file.path); });
    }
    return found;
}

} // namespace brimlow::platform
