#include "actions/InstalledAppsProvider.h"

#include "platform/MainQueue.h"
#include "platform/NSBundle.h"
#include "platform/NSFileManager.h"
#include "platform/NSWorkspace.h"
#include "platform/Platform.h"

#include <QCollator>
#include <QHash>
#include <QThreadPool>

#include <algorithm>

namespace brimlow {

using namespace Qt::StringLiterals;
using namespace platform;

namespace {

constexpr int iconPoints = 18;
constexpr auto suffix = ".app"_L1;

// A name that is nothing but the suffix has no suffix.
bool isApplication(const QString& fileName) {
    return fileName.endsWith(suffix) && fileName.size() > suffix.size();
}

QStringList entriesOf(const QString& folder) {
    QStringList paths;
    for (const auto& name : NSFileManager::contentsOfDirectory(folder).value_or(QStringList()))
        paths << folder + u'/' + name;
    return paths;
}

QString displayName(const NSBundle& bundle) {
    for (const auto& key : {u"CFBundleDisplayName"_s, u"CFBundleName"_s}) {
        const QJsonValue name = bundle.objectForInfoDictionaryKey(key);
        if (name.isString()) // an empty one counts
            return name.toString();
    }
    return bundle.bundlePath().section(u'/', -1).chopped(suffix.size());
}

} // namespace

std::shared_ptr<InstalledAppsProvider> InstalledAppsProvider::make() {
    return std::shared_ptr<InstalledAppsProvider>(new InstalledAppsProvider);
}

const QStringList& InstalledAppsProvider::scanRoots() {
    static const QStringList roots{
        u"/Applications"_s, u"/System/Applications"_s, u"/System/Applications/Utilities"_s,
        u"/Applications/Utilities"_s,
        NSFileManager::homeDirectoryForCurrentUser() + u"/Applications"_s};
    return roots;
}

void InstalledAppsProvider::reload() {
    isLoading = true;
    QThreadPool::globalInstance()->start([self = shared_from_this()]() mutable {
        // The reference moves on with the result and ends there: the queue may drop the work itself
        // on this thread, which must not be the one to destroy the provider.
        Platform::current().mainQueue.async(
            [self = std::move(self), found = scan(scanRoots())]() mutable {
                const auto provider = std::move(self);
                provider->apps = std::move(found);
                provider->isLoading = false;
            });
    });
}

std::vector<InstalledApp> InstalledAppsProvider::scan(const QStringList& roots) {
    QHash<QString, InstalledApp> byIdentifier;
    const auto keep = [&](const QString& path) {
        if (const auto app = makeApp(path))
            byIdentifier.insert(app->id, *app);
    };
    for (const auto& root : roots) {
        if (!NSFileManager::fileExists(root))
            continue;
        for (const auto& entry : entriesOf(root)) {
            bool isDirectory = false;
            if (isApplication(entry.section(u'/', -1))) {
                keep(entry);
            } else if (NSFileManager::fileExists(entry, isDirectory) && isDirectory) {
                for (const auto& inner : entriesOf(entry)) {
                    if (isApplication(inner.section(u'/', -1)))
                        keep(inner);
                }
            }
        }
    }
    std::vector<InstalledApp> apps(byIdentifier.cbegin(), byIdentifier.cend());
    QCollator byName;
    byName.setCaseSensitivity(Qt::CaseInsensitive);
    std::ranges::sort(apps, byName, &InstalledApp::name);
    return apps;
}

std::optional<InstalledApp> InstalledAppsProvider::makeApp(const QString& path) {
    const auto bundle = NSBundle::initWithURL(path);
    if (!bundle || bundle->bundleIdentifier().isEmpty())
        return std::nullopt;
    InstalledApp app{bundle->bundleIdentifier(), displayName(*bundle), path, {}};
    const QImage icon = NSWorkspace::iconForFile(path, iconPoints);
    if (!icon.isNull())
        app.icon = icon;
    return app;
}

} // namespace brimlow
