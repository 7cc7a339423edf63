#pragma once

#include "platform/Observable.h"
#include "platform/Streams.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include <optional>

namespace brimlow::platform {

/// The user's preferences: one JSON object in one file, key to value. Booleans, numbers, texts and
/// arrays stand as themselves, binary data as {"data": "<base64>"}. Every assignment is on disk
/// when the call returns; a reader of the file sees the old or the new whole, never a part. Keys
/// nobody here knows are kept.
///
/// A file that cannot be parsed is moved aside as "<name>.damaged-<UTC time>" with one line on
/// standard error. A file that cannot be written keeps the running state, says so once, and is
/// tried again at the next assignment.
///
/// Observers (several objects may show the same key) are told before each change. Main thread only.
class NSUserDefaults : public ObservableObject {
public:
    /// Reads `path`; a file or folder that does not exist yet is empty, and made when first
    /// written. Complaints go to `log`, which outlives this.
    NSUserDefaults(QString path, LogSink& log);

    /// $XDG_CONFIG_HOME/brimlow/preferences.json, by default below ~/.config.
    static QString standardPath();

    // Each is absent when the key is, or when its value is of another type.
    std::optional<bool> boolForKey(const QString& key) const;
    std::optional<double> doubleForKey(const QString& key) const;
    std::optional<QString> stringForKey(const QString& key) const;
    std::optional<QByteArray> dataForKey(const QString& key) const;
    std::optional<QJsonArray> arrayForKey(const QString& key) const;

    void setBool(bool value, const QString& key);
    void setDouble(double value, const QString& key); // must be finite
    void setString(const QString& value, const QString& key);
    void setData(const QByteArray& value, const QString& key);
    void setArray(const QJsonArray& value, const QString& key);
    void removeObjectForKey(const QString& key);

    const QString& path() const { return path_; }

private:
    void load();
    void set(const QString& key, QJsonValue value);
    void save();

    QString path_;
    LogSink& log_; // not the current platform's: the preferences are part of that
    QJsonObject values_;
    bool complained_ = false; // a failing disk is reported once until it works again
};

} // namespace brimlow::platform
