// What the linker puts in the place of the C library's functions (--wrap), for FailingDisk.

#include "tests/profiles/FailingDisk.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>

using brimlow::test::FailingDisk;

namespace {

/// Asks the disk that has `path`, does the call, and tells the disk what it gave. `real` takes
/// whether to do it by half.
template<typename Real, typename Then>
auto pass(const char* name, const std::filesystem::path& path, Real real, Then then) {
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
    return pass(
        "fsync", FailingDisk::pathOf(descriptor), [](bool) { return 0; },
        [&](FailingDisk& disk, int) { disk.synchronised(descriptor); });
}

ssize_t __wrap_read(int descriptor, void* bytes, size_t size) {
    return pass(
        "read", FailingDisk::pathOf(descriptor),
        [&](bool) { return __real_read(descriptor, bytes, size); }, nothing);
}

ssize_t __wrap_write(int descriptor, const void* bytes, size_t size) {
    return pass(
        "write", FailingDisk::pathOf(descriptor),
        [&](bool half) { return __real_write(descriptor, bytes, half ? size / 2 : size); },
        [&](FailingDisk& disk, int) { disk.written(descriptor); });
}

int __wrap_close(int descriptor) {
    const auto path = FailingDisk::pathOf(descriptor);
    const int result = pass(
        "close", path, [](bool) { return 0; }, nothing);
    const int error = errno;
    if (FailingDisk* disk = FailingDisk::of(path))
        disk->closed(descriptor);
    const int closed = __real_close(descriptor); // one that fails closes as well
    if (result != 0)
        errno = error;
    return result != 0 ? result : closed;
}

} // extern "C"
// NOLINTEND(bugprone-reserved-identifier)
