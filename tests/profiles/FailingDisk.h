#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace brimlow::test {

struct FileCall {
    std::string name; // "open"
    std::filesystem::path path;
};

/// Picks one of several again and again; `next` moves on to another combination of picks, until all
/// have been gone through.
class Choices {
public:
    std::size_t pick(std::size_t count);
    bool next();

private:
    struct Choice {
        std::size_t picked;
        std::size_t count;
    };
    std::vector<Choice> choices_;
    std::size_t position_ = 0;
};

/// While it lives, the file calls below `root` of what is linked into this program, but not those
/// of the shared libraries, go through it (see --wrap in CMakeLists.txt). It keeps account of what
/// a disk is bound to hold: of a file what was synchronised, of a folder the names when it was
/// synchronised. One at a time.
class FailingDisk {
public:
    static constexpr int halfWritten = -1;
    /// Called before each call. Gives the errno that the call is to fail with, undone; or for
    /// "write" `halfWritten`; or 0.
    std::function<int(const FileCall&)> before = [](const FileCall&) { return 0; };

    explicit FailingDisk(const std::filesystem::path& root);
    ~FailingDisk();
    FailingDisk(const FailingDisk&) = delete;
    FailingDisk& operator=(const FailingDisk&) = delete;

    /// Lays out in `folder` one after another all that the disk may hold if the power is cut now,
    /// and calls `check` for each. What is not synchronised may be there or not, bytes also in
    /// part, names of one folder in the order of their changes.
    void forEachPowerCut(const std::filesystem::path& folder, const std::function<void()>& check);

    // For the wrapped calls: which disk a file is on, and what has been done.
    static FailingDisk* of(const std::filesystem::path& path);
    static std::filesystem::path pathOf(int descriptor);
    void opened(int descriptor, const std::filesystem::path& path);
    void written(int descriptor);
    void synchronised(int descriptor);
    void closed(int descriptor) { descriptors_.erase(descriptor); }
    void made(const std::filesystem::path& path);
    void moved(const std::filesystem::path& from, const std::filesystem::path& to);
    void removed(const std::filesystem::path& path);

private:
    struct Node;
    using Names = std::map<std::string, std::shared_ptr<Node>>;
    struct NameChange { // an empty text: none
        std::string removed;
        std::string added;
        std::shared_ptr<Node> node;
    };
    struct Node {
        std::filesystem::file_type type;
        std::string bytes; // what a file holds, or a link leads to
        std::string securedBytes;
        Names securedNames; // of a folder
        std::vector<NameChange> changes;
    };
    struct Opened {
        std::filesystem::path path;
        std::shared_ptr<Node> node;
    };

    static std::shared_ptr<Node> scan(const std::filesystem::path& path);
    static Names names(const Node& folder, std::size_t changes);
    static void layOut(const Node& node, const std::filesystem::path& path, Choices& choices);
    std::shared_ptr<Node> find(const std::filesystem::path& path) const;

    std::filesystem::path root_;
    std::shared_ptr<Node> tree_;
    std::map<int, Opened> descriptors_;
};

} // namespace brimlow::test
