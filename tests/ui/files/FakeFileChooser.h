#pragma once

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>

namespace brimlow {

/// The file chooser of a portal, on a connection of its own: keeps what it is asked, and answers
/// when the test says so.
class FakeFileChooser : public QDBusVirtualObject {
public:
    explicit FakeFileChooser(QDBusConnection bus) : bus_(std::move(bus)) {
        bus_.registerVirtualObject(path_, this, QDBusConnection::SubPath);
        bus_.registerService(service_);
    }
    ~FakeFileChooser() override { vanish(); }

    /// As portals before 0.9: the request is not where the caller thinks.
    bool namesRequestsItself = false;
    /// Calls get no reply.
    bool silent = false;

    QDBusMessage call; // the last that asks for a file
    QString closed;    // the request that was closed last

    QVariantMap options() const { return qdbus_cast<QVariantMap>(call.arguments().value(2)); }
    QString request() const {
        const QString token = namesRequestsItself
                                  ? QStringLiteral("its_own")
                                  : options()[QStringLiteral("handle_token")].toString();
        const QString caller = call.service().remove(u':').replace(u'.', u'_');
        return path_ + QStringLiteral("/request/") + caller + u'/' + token;
    }
    void respond(uint code, const QStringList& uris = {}) {
        auto signal =
            QDBusMessage::createSignal(request(), QStringLiteral("org.freedesktop.portal.Request"),
                                       QStringLiteral("Response"));
        bus_.send(signal << code << QVariantMap{{QStringLiteral("uris"), uris}});
    }
    void vanish() {
        bus_.unregisterService(service_);
        bus_.unregisterObject(path_);
    }

    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection&) override {
        if (message.member() == u"Close") {
            closed = message.path();
            return bus_.send(message.createReply());
        }
        call = message;
        const QDBusObjectPath handle(request());
        return silent || bus_.send(message.createReply(QVariant::fromValue(handle)));
    }

private:
    const QString service_ = QStringLiteral("org.freedesktop.portal.Desktop");
    const QString path_ = QStringLiteral("/org/freedesktop/portal/desktop");
    QDBusConnection bus_;
};

} // namespace brimlow
