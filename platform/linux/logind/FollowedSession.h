#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QVariantMap>

#include <functional>
#include <memory>

namespace brimlow::platform {

/// Finds the session that this process belongs to with one running logind, and follows what it says
/// of it. Main thread.
class FollowedSession : public QObject {
    Q_OBJECT
public:
    /// `owner` is the unique name of logind: nobody else on the bus is listened to. `told` hears
    /// each state that becomes known, changed or not, but never from inside this constructor.
    FollowedSession(const QDBusConnection& bus, QString owner,
                    std::function<void(bool active)> told);

private Q_SLOTS:
    void appeared();
    void removed(const QDBusMessage& idAndPath);
    void propertiesChanged(const QString& interface, const QVariantMap& changed,
                           const QStringList& invalidated, const QDBusMessage& message);

private:
    using Otherwise = std::function<void()>;

    void search();
    void searchByName();
    void searchByUser();
    void tryAnswer(const QDBusMessage& question, const Otherwise& otherwise);
    void read(const QString& path, const Otherwise& otherwise);
    void update(const QVariantMap& properties);
    QDBusMessage question(const QString& path, const QString& interface, const QString& method,
                          const QVariantList& arguments) const;
    QDBusMessage managerQuestion(const QString& method, const QVariant& argument) const;

    QDBusConnection bus_;
    QString owner_;
    std::function<void(bool active)> told_;
    QString path_; // of the session; empty until it is found
    bool active_ = true;
    bool locked_ = false;
    std::unique_ptr<QObject> asker_; // a new one for each search: it hears no answers to the last
};

} // namespace brimlow::platform
