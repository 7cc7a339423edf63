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
    return {image.isEmpty() ? executablePath : image, dictionary};
}

std::optional<NSBundle> NSBundle::initWithURL(const QString& path) {
    const auto c = Platform::current().applications.catalogue();
    const auto* e = c->bundles().entryAt(path);
    if (!e)
        return std::nullopt;
    QJsonObject o{{u"CFBundleIdentifier"_s, e->id},
                  {u"CFBundleDisplayName"_s, e->name},
                  {u"CFBundleName"_s, e->plainName}};
    if (!e->executable.isEmpty())
        o.insert(u"CFBundleExecutable"_s, e->executable);
    return NSBundle(path, o);
}

QString NSBundle::bundleIdentifier() const {
    return infoDictionary_.value("CFBundleIdentifier"_L1).toString();
}

} // namespace brimlow::platform
