#include "platform/FrameworkImage.h"

#include <dlfcn.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace brimlow::platform {

namespace {

std::filesystem::path frameworksFolder() {
    if (const char* named = std::getenv("BRIMLOW_FRAMEWORKS"); named && *named)
        return named;
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    return program.parent_path().parent_path() / "lib" / "brimlow";
}

std::string installedPath(const char* path) {
    const std::filesystem::path asked(path);
    if (!asked.parent_path().string().ends_with(".framework"))
        return path;
    return (frameworksFolder() / asked.filename()).string() + ".so";
}

} // namespace

void* dlopen(const char* path, int mode) {
    return ::dlopen(installedPath(path).c_str(), mode);
}

void* dlsym(void* image, const char* symbol) {
    return ::dlsym(image, symbol);
}

QString dlerror() {
    return QString::fromLocal8Bit(::dlerror());
}

} // namespace brimlow::platform
