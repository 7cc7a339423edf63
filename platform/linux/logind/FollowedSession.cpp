#include "platform/linux/logind/FollowedSession.h"

#include "platform/linux/logind/BusQuestion.h"

#include <QDBusArgument>
#include <QDBusVariant>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace brimlow::platform {

namespace {

constexpr auto managerPath = "/org/freedesktop/login1"_L1;
constexpr auto managerInterface = "org.freedesktop.login1.Manager"_L1;
constexpr auto sessionInterface = "org.freedesktop.login1.Session"_L1;
constexpr auto userInterface = "org.freedesktop.login1.User"_L1;
constexpr auto propertiesInterface = "org.freedesktop.DBus.Properties"_L1;

/// A user's display session: its id and path.
std::optional<QString> pathOf(const QDBusVariant& display) {
    const auto argument = display.variant().value<QDBusArgument>();
    if (argument.currentSignature() != "(so)"_L1)
        return std::nullopt;
    QString id;
    QDBusObjectPath path;
    argument.beginStructure();
    argument >> id >> path;
    argument.endStructure();
    return path.path();
}

void takeBool(const QVariantMap& properties, const QString& name, bool& value) {
    const QVariant property = properties.value(name);
    if (property.typeId() == QMetaType::Bool)
        value = property.toBool();
}

} // namespace

// The signals Lock and Unlock are not followed: they ask a locker to act and tell no state. One
// that never says that it is done would leave us deaf for ever.
FollowedSession::FollowedSession(const QDBusConnection& bus, QString owner,
                                 std::function<void(bool active)> told)
    : bus_(bus), owner_(std::move(owner)), told_(std::move(told)) {
    bus_.connect(owner_, managerPath, managerInterface, u"SessionNew"_s, this, SLOT(appeared()));
    bus_.connect(owner_, managerPath, managerInterface, u"SessionRemoved"_s, this,
                 SLOT(removed(QDBusMessage)));
    bus_.connect(owner_, {}, propertiesInterface, u"PropertiesChanged"_s, {sessionInterface}, {},
                 this, SLOT(propertiesChanged(QString, QVariantMap, QStringList, QDBusMessage)));
    search();
}

void FollowedSession::appeared() {
    if (path_.isEmpty())
        search();
}

// Not QDBusObjectPath: QtDBus refuses a slot with that until a path has gone over some bus.
void FollowedSession::removed(const QDBusMessage& idAndPath) {
    const auto path = idAndPath.arguments().value(1).value<QDBusObjectPath>().path();
    if (path_.isEmpty() || path != path_)
        return;
    path_.clear();
    active_ = true;
    locked_ = false;
    told_(true);
    search();
}

void FollowedSession::search() {
    asker_ = std::make_unique<QObject>();
    tryAnswer(managerQuestion(u"GetSessionByPID"_s, static_cast<uint>(getpid())),
              [this] { searchByName(); });
}

void FollowedSession::searchByName() {
    const QString id = qEnvironmentVariable("XDG_SESSION_ID");
    if (id.isEmpty())
        searchByUser();
    else
        tryAnswer(managerQuestion(u"GetSession"_s, id), [this] { searchByUser(); });
}

/// What the user's service manager starts belongs to no session; it is meant for the one on
/// display.
void FollowedSession::searchByUser() {
    const auto readDisplayed = [this](const std::optional<QDBusVariant>& display) {
        if (const auto path = display ? pathOf(*display) : std::nullopt)
            read(*path, [] {});
    };
    const auto askUser = [this, readDisplayed](const std::optional<QDBusObjectPath>& user) {
        if (user)
            ask<QDBusVariant>(bus_,
                              question(user->path(), propertiesInterface, u"Get"_s,
                                       {userInterface, u"Display"_s}),
                              asker_.get(), readDisplayed);
    };
    ask<QDBusObjectPath>(bus_, managerQuestion(u"GetUser"_s, static_cast<uint>(getuid())),
                         asker_.get(), askUser);
}

void FollowedSession::tryAnswer(const QDBusMessage& question, const Otherwise& otherwise) {
    const auto found = [this, otherwise](const std::optional<QDBusObjectPath>& path) {
        if (path)
            read(path->path(), otherwise);
        else
            otherwise();
    };
    ask<QDBusObjectPath>(bus_, question, asker_.get(), found);
}

void FollowedSession::read(const QString& path, const Otherwise& otherwise) {
    const auto known = [this, path, otherwise](const std::optional<QVariantMap>& properties) {
        if (!properties) {
            otherwise();
            return;
        }
        path_ = path;
        update(*properties);
    };
    ask<QVariantMap>(bus_, question(path, propertiesInterface, u"GetAll"_s, {sessionInterface}),
                     asker_.get(), known);
}

void FollowedSession::propertiesChanged(const QString& /*interface*/, const QVariantMap& changed,
                                        const QStringList& invalidated,
                                        const QDBusMessage& message) {
    if (message.path() != path_)
        return;
    update(changed);
    if (invalidated.contains(u"Active"_s) || invalidated.contains(u"LockedHint"_s))
        read(path_, [] {});
}

void FollowedSession::update(const QVariantMap& properties) {
    takeBool(properties, u"Active"_s, active_);
    takeBool(properties, u"LockedHint"_s, locked_);
    told_(active_ && !locked_);
}

QDBusMessage FollowedSession::question(const QString& path, const QString& interface,
                                       const QString& method, const QVariantList& arguments) const {
    auto message = QDBusMessage::createMethodCall(owner_, path, interface, method);
    message.setArguments(arguments);
    return message;
}

QDBusMessage FollowedSession::managerQuestion(const QString& method,
                                              const QVariant& argument) const {
    return question(managerPath, managerInterface, method, {argument});
}

} // namespace brimlow::platform
