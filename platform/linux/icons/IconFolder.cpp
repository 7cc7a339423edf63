#include "platform/linux/icons/IconFolder.h"

#include <QFile>

#include <algorithm>
#include <chrono>
#include <functional>

namespace brimlow::platform {

namespace fs = std::filesystem;

namespace {
// A folder may change again within the same tick of its time stamp.
constexpr std::chrono::seconds settled{2};
} // namespace

std::uint32_t IconFolder::hash(std::string_view fileName) {
    return static_cast<std::uint32_t>(std::hash<std::string_view>()(fileName));
}

void IconFolder::refresh() {
    std::error_code error;
    const auto changed =
        fs::last_write_time(fs::path(QFile::encodeName(path_).toStdString()), error);
    if (error) {
        names_ = {};
        changed_.reset();
    } else if (changed != changed_) {
        read();
        changed_.reset();
        if (fs::file_time_type::clock::now() - changed > settled)
            changed_ = changed;
    }
}

bool IconFolder::mayHold(std::uint32_t fileName) const {
    return std::ranges::binary_search(names_, fileName);
}

void IconFolder::read() {
    names_.clear();
    std::error_code error;
    fs::directory_iterator entry(fs::path(QFile::encodeName(path_).toStdString()), error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (name.ends_with(".png") || name.ends_with(".svg") || name.ends_with(".xpm"))
            names_.push_back(hash(name));
    }
    std::ranges::sort(names_);
    names_.shrink_to_fit();
}

} // namespace brimlow::platform
