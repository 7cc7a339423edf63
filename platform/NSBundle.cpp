#include "platform/NSBundle.h"

#include "platform/Applications.h"
#include "platform/Platform.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>

namespace brimlow::platform {

using namespace Qt::StringLiterals;

NSBundle NSBundle::forApplicationAt(const QString& executablePath) {
    const QDir programs = QFileInfo(executablePath).dir();
    QFile info(programs.filePath(u"../share/brimlow/Info.json"_s));
    QJsonObject dictionary;
    if (info.open(QIODevice::ReadOnly))
        dictionary = QJsonDocument::fromJson(info.readAll()).object();
    const QString image = qEnvironmentVariable("APPIMAGE");
    return {image.isEmpty() ? executablePath : image, dictionary,
            QDir::cleanPath(programs.filePath(u"../libexec/brimlow"_s))};
}

std::optional<NSBundle> NSBundle::initWithURL(const QString& path) {
    const QString bundlePath = path.endsWith(u'/') ? path.chopped(1) : path;
    const auto catalogue = Platform::current().applications.catalogue();
    const auto* entry = catalogue->bundles().entryAt(bundlePath);
    if (!entry)
        return std::nullopt;
    QJsonObject dictionary{{u"CFBundleDisplayName"_s, entry->name},
                           {u"CFBundleName"_s, entry->plainName}};
    for (const auto& [key, value] : {std::pair(u"CFBundleIdentifier"_s, entry->id),
                                     std::pair(u"CFBundleExecutable"_s, entry->executable),
                                     std::pair(u"CFBundleIconFile"_s, entry->icon)}) {
        if (!value.isEmpty())
            dictionary.insert(key, value);
    }
    return NSBundle(bundlePath, dictionary);
}

QString NSBundle::bundleIdentifier() const {
    return infoDictionary_.value("CFBundleIdentifier"_L1).toString();
}

} // namespace brimlow::platform
