#pragma once

#include "platform/MainQueue.h"
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
/// A file that cannot be parsed is moved aside as "<name>.damaged-<UTC time>", with one line to
/// the log. A file that cannot be opened or moved may be sound: the log says so, and it is never
/// written as long as this lives. Where writing fails, the running state is kept, the log says so
/// once until it works again, and it is tried again by the next assignment, every minute, and at
/// the end.
///
/// Observers (several objects may show the same key) are told before each change. Main thread only.
class NSUserDefaults : public ObservableObject {
public:
    /// Reads `path`; a file or folder that does not exist yet is empty, and made when first
    /// written. Complaints go to `log`. Failed saves are tried again on `retries`, if there is one.
    /// Both outlive this.
    NSUserDefaults(QString path, LogSink& log, MainQueue* retries = nullptr);
    ~NSUserDefaults();

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

    /// For a value that its owner cannot make sense of and is about to replace: copies it to
    /// "<path>.<key>.damaged-<UTC time>" (data as its bytes, anything else as JSON), with one line
    /// to the log. Where that cannot be written, the file is not written either as long as this
    /// lives. Does nothing where the key is absent.
    void keepDamagedValueForKey(const QString& key);

    const QString& path() const { return path_; }

private:
    void load();
    void moveDamagedFileAside();
    void withhold(const QString& complaint);
    void set(const QString& key, const QJsonValue& value);
    void save();
    void tryAgainLater();

    QString path_;
    LogSink& log_; // not the current platform's: the preferences are part of that
    QJsonObject values_;
    MainQueue* retries_;
    bool unsaved_ = false;
    bool waiting_ = false;  // for the next try
    bool withheld_ = false; // the file has what nobody read and nothing keeps: never write
    // Either is reported once until it works again; a disk that cannot synchronise may fill up,
    // too.
    bool toldUnwritten_ = false;
    bool toldInsecure_ = false;
    Lifetime lifetime_;
};

} // namespace brimlow::platform
