// Opening and activating applications.

#include "actions/ActionExecutor.h"
#include "platform/NSBundle.h"
#include "platform/NSFileManager.h"
#include "platform/NSWorkspace.h"
#include "platform/Streams.h"

namespace brimlow {

using namespace Qt::StringLiterals;
using namespace platform;

QString ActionExecutor::executeOpenApp(const QString& name) {
    if (const auto url = NSWorkspace::URLForApplicationWithBundleIdentifier(name)) {
        NSWorkspace::openApplicationAtURL(*url);
        return u"Opening "_s + name;
    }
    const auto found = findApplicationByName(name);
    if (!found)
        return u"Could not find application: "_s + name;
    NSWorkspace::openApplicationAtURL(*found);
    return u"Opening "_s + applicationDisplayName(*found);
}

// A part of the name is enough, and the first application that has it is taken.
std::optional<QString> ActionExecutor::findApplicationByName(const QString& name) {
    const QString folder = u"/Applications"_s;
    const QString suffix = u".app"_s;
    const QString query = name.toLower();
    for (const QString& entry :
         NSFileManager::contentsOfDirectory(folder).value_or(QStringList())) {
        const QString path = folder + u'/' + entry;
        bool isDirectory = false;
        if (!NSFileManager::fileExists(path, isDirectory) || !isDirectory)
            continue;
        if (!entry.toLower().endsWith(suffix))
            continue;
        if (entry.chopped(suffix.size()).toLower().contains(query))
            return path;
    }
    return std::nullopt;
}

QString ActionExecutor::applicationDisplayName(const QString& url) {
    if (const auto bundle = NSBundle::initWithURL(url)) {
        for (const auto& key : {u"CFBundleDisplayName"_s, u"CFBundleExecutable"_s}) {
            const QString name = bundle->infoDictionary().value(key).toString();
            if (!name.isEmpty())
                return name;
        }
    }
    return url.section(u'/', -1).chopped(4);
}

QString ActionExecutor::executeFocusApp(const QString& bundleId) {
    printErrorLine(u"ActionExecutor.focus-app: called with bundleId='"_s + bundleId + u'\'');
    const auto running = NSRunningApplication::runningApplicationsWithBundleIdentifier(bundleId);
    if (!running.empty()) {
        running.front().activateWithOptions();
        return u"Focused "_s + running.front().localizedName().value_or(bundleId);
    }
    const auto url = NSWorkspace::URLForApplicationWithBundleIdentifier(bundleId);
    if (!url)
        return u"App not running and not installed: "_s + bundleId;
    NSWorkspace::openApplicationAtURL(*url);
    return u"Launched "_s + bundleId;
}

} // namespace brimlow
