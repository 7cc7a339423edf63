#pragma once

#include <QJsonObject>
#include <QString>

#include <optional>

namespace brimlow::platform {

/// This program's identifier, also where its packaging names none.
inline const QString builtInBundleIdentifier = QStringLiteral("org.brimlow.Brimlow");

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

    /// `auxiliaryFolder`: where the programs are that come with this one.
    NSBundle(QString bundlePath, QJsonObject infoDictionary, QString auxiliaryFolder = {})
        : bundlePath_(std::move(bundlePath)), infoDictionary_(std::move(infoDictionary)),
          auxiliaryFolder_(std::move(auxiliaryFolder)) {}

    const QString& bundlePath() const { return bundlePath_; }
    const QJsonObject& infoDictionary() const { return infoDictionary_; }
    /// Undefined when there is no such key.
    QJsonValue objectForInfoDictionaryKey(const QString& key) const {
        return infoDictionary_.value(key);
    }
    /// Empty when packaging names none.
    QString bundleIdentifier() const;
    /// What the system files this program's permissions under: the built-in one in place of none.
    QString identifierOfPermissions() const {
        const QString identifier = bundleIdentifier();
        return identifier.isEmpty() ? builtInBundleIdentifier : identifier;
    }
    /// Where a program of that name would be that comes with this one, whether it is there or not.
    QString pathForAuxiliaryExecutable(const QString& name) const {
        return auxiliaryFolder_ + u'/' + name;
    }

private:
    QString bundlePath_;
    QJsonObject infoDictionary_;
    QString auxiliaryFolder_;
};

} // namespace brimlow::platform
