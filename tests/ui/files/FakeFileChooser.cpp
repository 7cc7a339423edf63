#include "tests/ui/files/FakeFileChooser.h"

#include <QDBusArgument>
#include <QDBusObjectPath>

namespace brimlow {

using namespace Qt::StringLiterals;

namespace {
const QString service = u"org.freedesktop.portal.Desktop"_s;
const QString path = u"/org/freedesktop/portal/desktop"_s;
} // namespace

FakeFileChooser::FakeFileChooser(QDBusConnection bus) : bus_(std::move(bus)) {
    bus_.registerVirtualObject(path, this, QDBusConnection::SubPath);
    bus_.registerService(service);
}

QString FakeFileChooser::request() const {
    const QString token =
        namesRequestsItself ? u"its_own"_s : options.value(u"handle_token"_s).toString();
    return path + u"/request/"_s + QString(caller_).remove(u':').replace(u'.', u'_') + u'/' + token;
}

void FakeFileChooser::respond(uint code, const QStringList& uris) {
    auto signal =
        QDBusMessage::createSignal(request(), u"org.freedesktop.portal.Request"_s, u"Response"_s);
    signal << code << QVariantMap{{u"uris"_s, uris}};
    bus_.send(signal);
}

void FakeFileChooser::vanish() {
    bus_.unregisterService(service);
    bus_.unregisterObject(path);
}

bool FakeFileChooser::handleMessage(const QDBusMessage& message,
                                    const QDBusConnection& connection) {
    if (message.member() == u"Close") {
        closed = message.path();
        return connection.send(message.createReply());
    }
    if (!error.isEmpty())
        return connection.send(message.createErrorReply(error, u"as the test wants"_s));
    method = message.member();
    caller_ = message.service();
    parentName = message.arguments().value(0).toString();
    options = qdbus_cast<QVariantMap>(message.arguments().value(2));
    return silent
           || connection.send(message.createReply(QVariant::fromValue(QDBusObjectPath(request()))));
}

} // namespace brimlow
