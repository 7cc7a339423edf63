#include "access-helper/RuleFile.h"

#include "access-helper/RuleText.h"
#include "access-helper/UdevCommands.h"
#include "platform/FileDescriptor.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>

namespace brimlow::access {

using platform::FileDescriptor;

namespace {

int errorOf(int result) {
    return result == 0 ? 0 : errno;
}

FileDescriptor openFolder(const char* path) {
    return FileDescriptor(open(path, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

int writeNewFile(int folder, const char* name) {
    const FileDescriptor file(
        openat(folder, name, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0644));
    if (!file)
        return errno;
    std::string_view rest = ruleText;
    while (!rest.empty()) {
        const auto written = write(file.get(), rest.data(), rest.size());
        if (written < 0)
            return errno;
        rest.remove_prefix(static_cast<std::size_t>(written));
    }
    return errorOf(fsync(file.get()));
}

int replaceRule(int folder) {
    // udev reads names that end in ".rules" only. The process id keeps two helpers apart, so what
    // has this name was left behind by a crash.
    const std::string newName = std::string(".") + ruleName + "." + std::to_string(getpid());
    unlinkat(folder, newName.c_str(), 0);
    int error = writeNewFile(folder, newName.c_str());
    if (error == 0)
        error = errorOf(renameat(folder, newName.c_str(), folder, ruleName));
    if (error != 0) {
        unlinkat(folder, newName.c_str(), 0);
        return error;
    }
    return errorOf(fsync(folder));
}

} // namespace

int writeRule() {
    FileDescriptor folder = openFolder(ruleFolder);
    if (!folder && errno == ENOENT && mkdir(ruleFolder, 0755) == 0)
        folder = openFolder(ruleFolder);
    return folder ? replaceRule(folder.get()) : errno;
}

int removeRule() {
    const FileDescriptor folder = openFolder(ruleFolder);
    if (!folder)
        return errno == ENOENT ? 0 : errno;
    if (unlinkat(folder.get(), ruleName, 0) != 0)
        return errno == ENOENT ? 0 : errno;
    return errorOf(fsync(folder.get()));
}

} // namespace brimlow::access
