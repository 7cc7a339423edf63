#pragma once

#include <QJsonObject>
#include <QString>

#include <optional>

namespace brimlow::platform {

/// The installed program: where it stands and what packaging says of it.
class NSBundle {
public:
    /// The main bundle, read from "Info.json" beside the installed program's data where there is
    /// one.
    static NSBundle forApplicationAt(const QString& executablePath);

    static std::optional<NSBundle> initWithURL(const QString& path);

    NSBundle(QString bundlePath, QJsonObject infoDictionary)
        : bundlePath_(std::move(bundlePath)), infoDictionary_(std::move(infoDictionary)) {}

    const QString& bundlePath() const { return bundlePath_; }
    const QJsonObject& infoDictionary() const { return infoDictionary_; }
    /// Empty when packaging names none.
    QString bundleIdentifier() const;

private:
    QString bundlePath_;
    QJsonObject infoDictionary_;
};

} // namespace brimlow::platform
