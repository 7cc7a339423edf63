#pragma once

#include <QJsonObject>
#include <QString>

#include <optional>

namespace brimlow::platform {

/// A program: where it stands and what packaging says of it. Any thread.
class NSBundle {
public:
    /// The main bundle, read from "Info.json" beside the installed program's data where there is
    /// one.
    static NSBundle forApplicationAt(const QString& executablePath);

    /// An installed application's, which is read-only and has the keys CFBundleIdentifier,
    /// CFBundleDisplayName (in the user's language), CFBundleName (in none), CFBundleExecutable and
    /// CFBundleIconFile; of these only the two names may be empty. Absent where no application
    /// bundle is. A slash at the end of `path` is left out.
    static std::optional<NSBundle> initWithURL(const QString& path);

    NSBundle(QString bundlePath, QJsonObject infoDictionary)
        : bundlePath_(std::move(bundlePath)), infoDictionary_(std::move(infoDictionary)) {}

    const QString& bundlePath() const { return bundlePath_; }
    const QJsonObject& infoDictionary() const { return infoDictionary_; }
    /// Undefined when there is no such key.
    QJsonValue objectForInfoDictionaryKey(const QString& key) const {
        return infoDictionary_.value(key);
    }
    /// Empty when packaging names none.
    QString bundleIdentifier() const;

private:
    QString bundlePath_;
    QJsonObject infoDictionary_;
};

} // namespace brimlow::platform
