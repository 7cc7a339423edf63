#include "platform/linux/logind/LogindSession.h"

#include "platform/linux/logind/BusQuestion.h"
#include "platform/linux/logind/FollowedSession.h"

#include <QDBusServiceWatcher>
#include <QThread>

using namespace Qt::StringLiterals;

namespace brimlow::platform {

namespace {

QString logind() {
    return u"org.freedesktop.login1"_s;
}

} // namespace

LogindSession::LogindSession(Handler handler)
    : handler_(std::move(handler)), name_(u"logind %1"_s.arg(reinterpret_cast<quintptr>(this))) {
    // Connecting waits for the bus to greet back, so another thread does it.
    connecting_.reset(QThread::create(
        [name = name_] { QDBusConnection::connectToBus(QDBusConnection::SystemBus, name); }));
    connect(connecting_.get(), &QThread::finished, this, &LogindSession::connected);
    connecting_->start();
}

LogindSession::~LogindSession() {
    connecting_->wait();
    session_.reset();
    QDBusConnection::disconnectFromBus(name_);
}

void LogindSession::connected() {
    QDBusConnection bus(name_);
    if (!bus.isConnected())
        return;
    bus.connect({}, u"/org/freedesktop/DBus/Local"_s, u"org.freedesktop.DBus.Local"_s,
                u"Disconnected"_s, this, SLOT(busGone()));
    auto* watcher =
        new QDBusServiceWatcher(logind(), bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString&, const QString& owner) { ownerIs(owner); });
    auto question =
        QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                       u"org.freedesktop.DBus"_s, u"GetNameOwner"_s);
    question << logind();
    ask<QString>(bus, question, this,
                 [this](const std::optional<QString>& owner) { ownerIs(owner.value_or(u""_s)); });
}

void LogindSession::busGone() {
    ownerIs({});
}

/// What another owner said, or nobody says any more, no longer holds.
void LogindSession::ownerIs(const QString& owner) {
    if (owner == owner_)
        return;
    owner_ = owner;
    session_.reset();
    tell(true);
    if (!owner.isEmpty())
        session_ = std::make_unique<FollowedSession>(QDBusConnection(name_), owner,
                                                     [this](bool active) { tell(active); });
}

void LogindSession::tell(bool active) {
    if (active == active_)
        return;
    active_ = active;
    handler_(active);
}

} // namespace brimlow::platform
