#include "platform/NSBundle.h"

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

QString NSBundle::bundleIdentifier() const {
    return infoDictionary_.value("CFBundleIdentifier"_L1).toString();
}

} // namespace brimlow::platform
