#include "platform/NSFileManager.h"

#include "platform/Applications.h"
#include "platform/Platform.h"

namespace brimlow::platform {

namespace {

bool exists(const ApplicationBundles& bundles, const QString& path) {
    return bundles.isFolder(path) || bundles.entryAt(path);
}

} // namespace

std::optional<QStringList> NSFileManager::contentsOfDirectory(const QString& path) {
    const auto catalogue = Platform::current().applications.catalogue();
    if (!exists(catalogue->bundles(), path))
        return std::nullopt;
    return catalogue->bundles().contents(path);
}

bool NSFileManager::fileExists(const QString& path) {
    return exists(Platform::current().applications.catalogue()->bundles(), path);
}

bool NSFileManager::fileExists(const QString& path, bool& isDirectory) {
    isDirectory = fileExists(path); // there are no other files
    return isDirectory;
}

QString NSFileManager::homeDirectoryForCurrentUser() {
    return Platform::current().applications.catalogue()->home();
}

} // namespace brimlow::platform
