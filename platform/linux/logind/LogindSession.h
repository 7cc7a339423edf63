#pragma once

#include <QDBusConnection>
#include <QObject>

#include <functional>
#include <memory>

class QThread;

namespace brimlow::platform {

class FollowedSession;

/// Knows from logind whether the session that this process belongs to is in front and not locked.
/// Without a bus, a logind or a session it counts as active. Main thread, which never waits for
/// the bus; nothing wakes while nothing changes.
class LogindSession : public QObject {
    Q_OBJECT
public:
    using Handler = std::function<void(bool active)>;

    /// The handler is told of changes only, and the session is active to begin with.
    explicit LogindSession(Handler handler);
    ~LogindSession() override;

private Q_SLOTS:
    void busGone();

private:
    void connected();
    void ownerIs(const QString& owner);
    void tell(bool active);

    Handler handler_;
    bool active_ = true; // as last told
    QString name_;       // of our own connection
    std::unique_ptr<QThread> connecting_;
    QString owner_; // of logind's name; empty when there is none
    std::unique_ptr<FollowedSession> session_;
};

} // namespace brimlow::platform
