#include "tests/profiles/FailingDisk.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <fstream>
#include <iterator>

namespace brimlow::test {

namespace {

FailingDisk* current = nullptr;

constexpr auto keepingLinks = fs::copy_options::recursive | fs::copy_options::copy_symlinks;

std::string bytesOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

FailingDisk::FailingDisk(const fs::path& root) : root_(root), atFirst_(root.string() + "-before") {
    fs::remove_all(atFirst_);
    fs::copy(root, atFirst_, keepingLinks);
    for (const auto& each : fs::recursive_directory_iterator(root))
        if (fs::is_regular_file(each.symlink_status()))
            files_[each] = std::make_shared<File>(File{bytesOf(each), bytesOf(each)});
    current = this;
}

FailingDisk::~FailingDisk() {
    current = nullptr;
}

FailingDisk* FailingDisk::of(const fs::path& path) {
    if (!current || path.empty())
        return nullptr;
    const bool below = *current->inside(path).begin() != "..";
    return below ? current : nullptr;
}

fs::path FailingDisk::pathOf(int descriptor) {
    if (!current)
        return {};
    const auto found = current->paths_.find(descriptor);
    return found == current->paths_.end() ? fs::path() : found->second;
}

void FailingDisk::forEachPowerCut(const fs::path& folder,
                                  const std::function<void()>& check) const {
    const auto unsecured = std::ranges::count(changes_, false, &Change::secured);
    for (std::ptrdiff_t reached = 0; reached <= unsecured; ++reached) {
        for (const Held held : {Held::secured, Held::half, Held::all}) {
            fs::remove_all(folder);
            fs::copy(atFirst_, folder, keepingLinks);
            std::ptrdiff_t left = reached;
            for (const Change& change : changes_)
                if (change.secured || left-- > 0)
                    change.redo(folder, held);
            check();
        }
    }
}

std::string FailingDisk::File::held(Held held) const {
    if (held == Held::secured || bytes == securedBytes)
        return securedBytes;
    return bytes.substr(0, bytes.size() / (held == Held::half ? 2 : 1));
}

void FailingDisk::opened(int descriptor, const fs::path& path) {
    paths_[descriptor] = path;
    if (fs::is_directory(path))
        return;
    auto& file = files_[path];
    const bool hasName = file != nullptr;
    if (!file)
        file = std::make_shared<File>();
    written(path); // it may have been truncated
    const auto redo = [name = inside(path), file](const fs::path& laidOut, Held held) {
        std::ofstream(laidOut / name, std::ios::binary) << file->held(held);
    };
    changes_.push_back({path.parent_path(), redo, hasName});
}

void FailingDisk::written(const fs::path& path) {
    files_.at(path)->bytes = bytesOf(path);
}

void FailingDisk::synchronised(const fs::path& path) {
    if (files_.contains(path))
        files_[path]->securedBytes = files_[path]->bytes;
    for (Change& change : changes_)
        change.secured = change.secured || change.folder == path;
}

void FailingDisk::made(const fs::path& path) {
    const auto redo = [name = inside(path)](const fs::path& laidOut, Held) {
        std::error_code parentIsMissing;
        fs::create_directory(laidOut / name, parentIsMissing);
    };
    changes_.push_back({path.parent_path(), redo});
}

void FailingDisk::moved(const fs::path& from, const fs::path& to) {
    files_[to] = files_[from];
    files_.erase(from);
    const auto redo = [old = inside(from), name = inside(to)](const fs::path& laidOut, Held) {
        std::error_code isMissing;
        fs::rename(laidOut / old, laidOut / name, isMissing);
    };
    changes_.push_back({to.parent_path(), redo});
}

void FailingDisk::removed(const fs::path& path) {
    files_.erase(path);
    const auto redo = [name = inside(path)](const fs::path& laidOut, Held) {
        fs::remove(laidOut / name);
    };
    changes_.push_back({path.parent_path(), redo});
}

namespace {

/// Asks the disk that has `path`, does the call, and tells the disk what it gave. `real` takes
/// whether to do it by half.
template<typename Real, typename Then>
auto pass(const char* name, const fs::path& path, Real real, Then then) {
    FailingDisk* disk = FailingDisk::of(path);
    const int error = disk ? disk->before({name, path}) : 0;
    if (error > 0) {
        errno = error;
        return decltype(real(false))(-1);
    }
    const auto result = real(error == FailingDisk::halfWritten);
    if (disk && result >= 0)
        then(*disk, static_cast<int>(result));
    return result;
}

constexpr auto nothing = [](FailingDisk&, int) {};

} // namespace

// What the linker puts in the place of the C library's functions.
// NOLINTBEGIN(bugprone-reserved-identifier): the linker's names.
extern "C" {

int __real_open(const char* path, int flags, ...);
int __real_access(const char* path, int mode);
int __real_mkdir(const char* path, mode_t mode);
int __real_unlink(const char* path);
int __real_rename(const char* from, const char* to);
int __real_close(int descriptor);
ssize_t __real_read(int descriptor, void* bytes, size_t size);
ssize_t __real_write(int descriptor, const void* bytes, size_t size);

int __wrap_open(const char* path, int flags, ...) {
    std::va_list more;
    va_start(more, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(more, mode_t) : 0;
    va_end(more);
    return pass(
        "open", path, [&](bool) { return __real_open(path, flags, mode); },
        [&](FailingDisk& disk, int descriptor) { disk.opened(descriptor, path); });
}

int __wrap_access(const char* path, int mode) {
    return pass(
        "access", path, [&](bool) { return __real_access(path, mode); }, nothing);
}

int __wrap_mkdir(const char* path, mode_t mode) {
    return pass(
        "mkdir", path, [&](bool) { return __real_mkdir(path, mode); },
        [&](FailingDisk& disk, int) { disk.made(path); });
}

int __wrap_unlink(const char* path) {
    return pass(
        "unlink", path, [&](bool) { return __real_unlink(path); },
        [&](FailingDisk& disk, int) { disk.removed(path); });
}

int __wrap_rename(const char* from, const char* to) {
    return pass(
        "rename", from, [&](bool) { return __real_rename(from, to); },
        [&](FailingDisk& disk, int) { disk.moved(from, to); });
}

// Never for real: nobody cuts the power of this machine, and waiting for its disk takes most time.
int __wrap_fsync(int descriptor) {
    const auto path = FailingDisk::pathOf(descriptor);
    return pass(
        "fsync", path, [](bool) { return 0; },
        [&](FailingDisk& disk, int) { disk.synchronised(path); });
}

ssize_t __wrap_read(int descriptor, void* bytes, size_t size) {
    return pass(
        "read", FailingDisk::pathOf(descriptor),
        [&](bool) { return __real_read(descriptor, bytes, size); }, nothing);
}

ssize_t __wrap_write(int descriptor, const void* bytes, size_t size) {
    const auto path = FailingDisk::pathOf(descriptor);
    return pass(
        "write", path,
        [&](bool half) { return __real_write(descriptor, bytes, half ? size / 2 : size); },
        [&](FailingDisk& disk, int) { disk.written(path); });
}

int __wrap_close(int descriptor) {
    const auto path = FailingDisk::pathOf(descriptor);
    if (FailingDisk* disk = FailingDisk::of(path))
        disk->closed(descriptor);
    __real_close(descriptor); // one that fails closes as well
    return pass(
        "close", path, [](bool) { return 0; }, nothing);
}

} // extern "C"
// NOLINTEND(bugprone-reserved-identifier)

} // namespace brimlow::test
