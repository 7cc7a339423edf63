#include "tests/profiles/FailingDisk.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <fstream>
#include <iterator>

namespace brimlow::test {

namespace {

FailingDisk* current = nullptr;

std::string bytesOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void replaceByCopy(const fs::path& from, const fs::path& to) {
    fs::remove_all(to);
    fs::copy(from, to, fs::copy_options::recursive | fs::copy_options::copy_symlinks);
}

} // namespace

Files filesBelow(const fs::path& folder) {
    Files files;
    for (const auto& each : fs::recursive_directory_iterator(folder))
        if (fs::is_regular_file(each.symlink_status()))
            files[each] = bytesOf(each);
    return files;
}

FailingDisk::FailingDisk(const fs::path& root)
    : root_(root), secured_(root.string() + "-secured"), securedBytes_(filesBelow(root)) {
    replaceByCopy(root_, secured_);
    current = this;
}

FailingDisk::~FailingDisk() {
    current = nullptr;
}

FailingDisk* FailingDisk::of(const fs::path& path) {
    if (!current || path.empty())
        return nullptr;
    const bool below = *path.lexically_relative(current->root_).begin() != "..";
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
    replaceByCopy(secured_, folder);
    check();
    for (const double part : {0.0, 0.5, 1.0}) {
        replaceByCopy(root_, folder);
        for (const auto& [file, bytes] : filesBelow(root_)) {
            const auto secured = securedBytes_.find(file);
            const auto held = secured == securedBytes_.end() ? std::string() : secured->second;
            const auto length = static_cast<std::size_t>(part * static_cast<double>(bytes.size()));
            std::ofstream(folder / file.lexically_relative(root_), std::ios::binary)
                << (part == 0 || held == bytes ? held : bytes.substr(0, length));
        }
        check();
    }
}

void FailingDisk::synchronised(const fs::path& path) {
    if (!fs::is_directory(path)) {
        securedBytes_[path] = bytesOf(path);
        return;
    }
    const fs::path folder = secured_ / path.lexically_relative(root_);
    if (!fs::exists(folder))
        return;
    for (const auto& each : fs::directory_iterator(folder))
        if (!fs::exists(fs::symlink_status(path / each.path().filename())))
            fs::remove_all(each);
    for (const auto& each : fs::directory_iterator(path)) {
        if (each.is_directory())
            fs::create_directory(folder / each.path().filename());
        else if (!each.is_symlink())
            std::ofstream(folder / each.path().filename()) << securedBytes_[each];
    }
}

void FailingDisk::moved(const fs::path& from, const fs::path& to) {
    securedBytes_[to] = securedBytes_[from];
    securedBytes_.erase(from);
}

namespace {

/// What is to become of this call: see FailingDisk::before.
int fault(const char* name, const fs::path& path) {
    FailingDisk* disk = FailingDisk::of(path);
    const int error = disk ? disk->before({name, path}) : 0;
    if (error > 0)
        errno = error;
    return error;
}

bool fails(const char* name, const fs::path& path) {
    return fault(name, path) > 0;
}

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
    const int descriptor = fails("open", path) ? -1 : __real_open(path, flags, mode);
    if (FailingDisk* disk = FailingDisk::of(path); disk && descriptor >= 0)
        disk->opened(descriptor, path);
    return descriptor;
}

int __wrap_access(const char* path, int mode) {
    return fails("access", path) ? -1 : __real_access(path, mode);
}

int __wrap_mkdir(const char* path, mode_t mode) {
    return fails("mkdir", path) ? -1 : __real_mkdir(path, mode);
}

int __wrap_unlink(const char* path) {
    const int result = fails("unlink", path) ? -1 : __real_unlink(path);
    if (FailingDisk* disk = FailingDisk::of(path); disk && result == 0)
        disk->removed(path);
    return result;
}

int __wrap_rename(const char* from, const char* to) {
    const int result = fails("rename", from) ? -1 : __real_rename(from, to);
    if (FailingDisk* disk = FailingDisk::of(from); disk && result == 0)
        disk->moved(from, to);
    return result;
}

// Never for real: nobody cuts the power of this machine, and waiting for its disk takes most time.
int __wrap_fsync(int descriptor) {
    const auto path = FailingDisk::pathOf(descriptor);
    if (fails("fsync", path))
        return -1;
    if (FailingDisk* disk = FailingDisk::of(path))
        disk->synchronised(path);
    return 0;
}

ssize_t __wrap_read(int descriptor, void* bytes, size_t size) {
    return fails("read", FailingDisk::pathOf(descriptor)) ? -1
                                                          : __real_read(descriptor, bytes, size);
}

ssize_t __wrap_write(int descriptor, const void* bytes, size_t size) {
    const int result = fault("write", FailingDisk::pathOf(descriptor));
    if (result > 0)
        return -1;
    return __real_write(descriptor, bytes, result == FailingDisk::halfWritten ? size / 2 : size);
}

int __wrap_close(int descriptor) {
    const auto path = FailingDisk::pathOf(descriptor);
    if (FailingDisk* disk = FailingDisk::of(path))
        disk->closed(descriptor);
    __real_close(descriptor); // one that fails closes as well
    return fails("close", path) ? -1 : 0;
}

} // extern "C"
// NOLINTEND(bugprone-reserved-identifier)

} // namespace brimlow::test
