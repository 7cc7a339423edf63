#include "ui/files/PortalFileChooser.h"

#include "ui/files/PortalFilter.h"

#include <QDBusError>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QGuiApplication>
#include <QUrl>
#include <QUuid>

namespace brimlow {

using namespace Qt::StringLiterals;

namespace {

constexpr auto service = "org.freedesktop.portal.Desktop"_L1;
constexpr auto portalPath = "/org/freedesktop/portal/desktop"_L1;
constexpr auto chooserInterface = "org.freedesktop.portal.FileChooser"_L1;
constexpr auto requestInterface = "org.freedesktop.portal.Request"_L1;

// Of the portal, to begin, which includes its own start; the user may take for ever. Shorter than
// the 25 s that a portal waits for a backend that hangs: by then nobody looks any more.
constexpr int callLimit = 10'000; // ms

/// As the portal takes it; only X11 has window names that Qt tells.
QString portalNameOf(const QWidget* parent) {
    if (!parent || QGuiApplication::platformName() != u"xcb")
        return {};
    return u"x11:"_s + QString::number(parent->window()->winId(), 16);
}

FileDialogs::Answer failure() {
    return {{}, u"The desktop's file dialog failed."_s};
}

FileDialogs::Answer answerFor(uint code, const QVariantMap& results) {
    // Others are "ended in some other way", which GTK's portal says of Escape and of a closed
    // window as well as of its own death.
    if (code != 0)
        return {};
    const QStringList uris = results.value(u"uris"_s).toStringList();
    if (uris.isEmpty())
        return failure();
    const QUrl file = QUrl::fromEncoded(uris.constFirst().toUtf8());
    if (!file.isLocalFile())
        return {{}, u"That file isn't on this computer."_s};
    return {file.toLocalFile(), {}};
}

} // namespace

PortalFileChooser::PortalFileChooser(QDBusConnection bus, FileTask task,
                                     const FileDialogs::Request& request)
    : QWidget(request.parent, Qt::Dialog), bus_(std::move(bus)),
      portal_(service, bus_, QDBusServiceWatcher::WatchForOwnerChange) {
    setAttribute(Qt::WA_DontShowOnScreen);
    setWindowModality(Qt::WindowModal);
    show();
    connect(&portal_, &QDBusServiceWatcher::serviceOwnerChanged, this, &PortalFileChooser::lose);
    bus_.connect({}, u"/org/freedesktop/DBus/Local"_s, u"org.freedesktop.DBus.Local"_s,
                 u"Disconnected"_s, this, SLOT(lose()));
    if (bus_.isConnected())
        ask(task, request);
    else
        QMetaObject::invokeMethod(
            this, [this] { takeReply({}); }, Qt::QueuedConnection);
}

PortalFileChooser::~PortalFileChooser() {
    if (!finished_)
        closeDialog();
}

void PortalFileChooser::closeDialog() {
    bus_.send(QDBusMessage::createMethodCall(service, requestPath_, requestInterface, u"Close"_s));
}

void PortalFileChooser::ask(FileTask task, const FileDialogs::Request& request) {
    registerPortalFilter();
    const QString token = u"brimlow"_s + QUuid::createUuid().toString(QUuid::Id128);
    const QString self = bus_.baseService().mid(1).replace(u'.', u'_');
    listenTo(portalPath + u"/request/"_s + self + u'/' + token);

    QVariantMap options{{u"handle_token"_s, token},
                        {u"modal"_s, true},
                        {u"filters"_s, QVariant::fromValue(QList<PortalFilter>{
                                           portalFilterFor(request.contentType)})}};
    if (task == FileTask::save && !request.proposedName.isEmpty())
        options.insert(u"current_name"_s, request.proposedName);
    auto call =
        QDBusMessage::createMethodCall(service, portalPath, chooserInterface,
                                       task == FileTask::save ? u"SaveFile"_s : u"OpenFile"_s);
    call << portalNameOf(request.parent) << request.title << options;
    auto* reply = new QDBusPendingCallWatcher(bus_.asyncCall(call, callLimit), this);
    connect(reply, &QDBusPendingCallWatcher::finished, this, [this, reply] {
        reply->deleteLater();
        takeReply(reply->reply());
    });
}

void PortalFileChooser::listenTo(const QString& requestPath) {
    requestPath_ = requestPath;
    // Naming the service here would make Qt ask the bus for its owner, and wait.
    bus_.connect({}, requestPath, requestInterface, u"Response"_s, this,
                 SLOT(takeResponse(uint, QVariantMap)));
}

void PortalFileChooser::takeReply(const QDBusMessage& reply) {
    if (reply.type() == QDBusMessage::ReplyMessage && reply.signature() == u"o") {
        shown_ = true;
        // Portals before 0.9 know no handle_token.
        const QString path = reply.arguments().constFirst().value<QDBusObjectPath>().path();
        if (path != requestPath_)
            listenTo(path);
    } else if (finish()) {
        if (reply.errorName() == QDBusError::errorString(QDBusError::NoReply))
            closeDialog(); // which may only be late
        Q_EMIT unavailable();
    }
}

void PortalFileChooser::takeResponse(uint code, const QVariantMap& results) {
    if (finish())
        Q_EMIT answered(answerFor(code, results));
}

void PortalFileChooser::lose() {
    if (shown_ && finish()) // else the call fails
        Q_EMIT answered(failure());
}

bool PortalFileChooser::finish() {
    if (finished_)
        return false;
    finished_ = true;
    hide();
    return true;
}

} // namespace brimlow
