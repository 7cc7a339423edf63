#pragma once

#include <QString>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

namespace brimlow::platform {

/// Which image files one folder has, kept as hashes of their names: four bytes each, because a
/// theme may have a hundred thousand. It now and then says yes to a file that is not there.
class IconFolder {
public:
    explicit IconFolder(QString path) : path_(std::move(path)) {}

    static std::uint32_t hash(std::string_view fileName);

    const QString& path() const { return path_; }
    /// Reads the folder when it changed since the last call; before the first one it is empty.
    void refresh();
    bool mayHold(std::uint32_t fileName) const;

private:
    void read();

    QString path_;
    std::vector<std::uint32_t> names_; // sorted
    std::optional<std::filesystem::file_time_type> changed_;
};

} // namespace brimlow::platform
