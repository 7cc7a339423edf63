#pragma once

#include <QDBusConnection>
#include <QLockFile>
#include <QObject>
#include <QVariantMap>

#include <memory>

namespace brimlow {

/// The one Brimlow of this user's session, as launchers and a second start reach it:
/// org.freedesktop.Application on the session bus. Main thread.
class ApplicationService : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    /// Where that bus is not connected, a file that is locked tells, in the folder for such files.
    explicit ApplicationService(QDBusConnection bus);

    enum class Other { isLeftAlone, showsItself };

    /// False where another one runs already; what becomes of that.
    bool start(Other other);

public Q_SLOTS:
    // From the bus.
    Q_SCRIPTABLE void Activate(const QVariantMap& platformData);
    Q_SCRIPTABLE void Open(const QStringList& addresses, const QVariantMap& platformData);
    Q_SCRIPTABLE void ActivateAction(const QString& name, const QVariantList& parameters,
                                     const QVariantMap& platformData);

Q_SIGNALS:
    /// The user wants to see the application.
    void activated();

private:
    bool lock();
    void handOver();

    QDBusConnection bus_;
    std::unique_ptr<QLockFile> lock_;
};

} // namespace brimlow
