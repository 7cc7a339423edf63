#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <string>

namespace brimlow::test {

namespace fs = std::filesystem;

struct FileCall {
    std::string name; // "open"
    fs::path path;
};

using Files = std::map<fs::path, std::string>;

/// What the files below `folder` hold; links are none.
Files filesBelow(const fs::path& folder);

/// While it lives, the file calls below `root` of what is linked into this program, but not those
/// of the shared libraries, go through it (see --wrap in CMakeLists.txt). It keeps account of what
/// a disk is bound to hold: of a file what was synchronised, of a folder the names when it was
/// synchronised, if its own name was. One at a time.
class FailingDisk {
public:
    static constexpr int halfWritten = -1;
    /// Called before each call. Gives the errno that the call is to fail with, undone; or for
    /// "write" `halfWritten`; or 0.
    std::function<int(const FileCall&)> before = [](const FileCall&) { return 0; };

    explicit FailingDisk(const fs::path& root);
    ~FailingDisk();
    FailingDisk(const FailingDisk&) = delete;
    FailingDisk& operator=(const FailingDisk&) = delete;

    /// Lays out in `folder` one after another what the disk may hold if the power is cut now, and
    /// calls `check` for each: none of the names that are not synchronised, or all, and then none
    /// of the bytes, half of them, or all.
    void forEachPowerCut(const fs::path& folder, const std::function<void()>& check) const;

    // For the wrapped calls: which disk a file is on, and what has been done.
    static FailingDisk* of(const fs::path& path);
    static fs::path pathOf(int descriptor);
    void opened(int descriptor, const fs::path& path) { paths_[descriptor] = path; }
    void closed(int descriptor) { paths_.erase(descriptor); }
    void synchronised(const fs::path& path);
    void moved(const fs::path& from, const fs::path& to);
    void removed(const fs::path& path) { securedBytes_.erase(path); }

private:
    fs::path root_;
    fs::path secured_; // what is bound to be there
    Files securedBytes_;
    std::map<int, fs::path> paths_; // by descriptor
};

} // namespace brimlow::test
