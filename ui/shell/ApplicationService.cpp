#include "ui/shell/ApplicationService.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QStandardPaths>

namespace brimlow {

using namespace Qt::StringLiterals;

namespace {

const QString name = u"org.brimlow.Brimlow"_s;
const QString path = u"/org/brimlow/Brimlow"_s;
constexpr int patience = 5000; // ms for the other one to answer

/// What lets a window come to the front: on its way from the environment of one process to that of
/// the other, where Qt looks for it.
constexpr auto activationToken = "activation-token"_L1;
constexpr auto tokenVariable = "XDG_ACTIVATION_TOKEN";

} // namespace

ApplicationService::ApplicationService(QDBusConnection bus) : bus_(std::move(bus)) {}

bool ApplicationService::start(Other other) {
    if (!bus_.isConnected())
        return lock();
    // First the object, so that nobody finds the name without it.
    bus_.registerObject(path, this, QDBusConnection::ExportScriptableSlots);
    const auto reply =
        bus_.interface()->registerService(name, QDBusConnectionInterface::DontQueueService,
                                          QDBusConnectionInterface::DontAllowReplacement);
    if (reply.value() == QDBusConnectionInterface::ServiceRegistered)
        return true;
    bus_.unregisterObject(path);
    if (other == Other::showsItself)
        handOver();
    return false;
}

bool ApplicationService::lock() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    lock_ = std::make_unique<QLockFile>(folder + u"/brimlow.lock"_s);
    lock_->setStaleLockTime(0); // old is not dead
    return lock_->tryLock() || lock_->error() != QLockFile::LockFailedError;
}

void ApplicationService::handOver() {
    auto request =
        QDBusMessage::createMethodCall(name, path, u"org.freedesktop.Application"_s, u"Activate"_s);
    QVariantMap platformData;
    if (qEnvironmentVariableIsSet(tokenVariable))
        platformData[activationToken] = qEnvironmentVariable(tokenVariable);
    request << platformData;
    bus_.call(request, QDBus::Block, patience);
}

void ApplicationService::Activate(const QVariantMap& platformData) {
    if (const auto token = platformData.value(activationToken).toByteArray(); !token.isEmpty())
        qputenv(tokenVariable, token);
    Q_EMIT activated();
}

void ApplicationService::Open(const QStringList&, const QVariantMap& platformData) {
    Activate(platformData);
}

void ApplicationService::ActivateAction(const QString&, const QVariantList&,
                                        const QVariantMap& platformData) {
    Activate(platformData);
}

} // namespace brimlow
