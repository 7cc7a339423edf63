#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <QStringList>
#include <QThread>
#include <QVariantMap>

#include <atomic>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace brimlow::desktop {

/// A line of an application's menu as a panel reads it.
struct PanelMenuItem {
    int id = 0;
    QString label;    // as the panel writes it
    QString shortcut; // "Control+1"
    bool enabled = true;
    std::optional<bool> checked; // absent where there is nothing to check
    bool separator = false;
};

/// What status notifiers find on the bus. Lives on the panel's thread; everything from any.
class StatusNotifierWatcher : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hasHost)
    Q_PROPERTY(QStringList RegisteredStatusNotifierItems READ items)
    Q_PROPERTY(int ProtocolVersion READ protocolVersion)

public:
    void setHost(bool has);
    bool hasHost() const { return hasHost_; }
    QStringList items() const;
    void forgetItems();
    int protocolVersion() const { return 0; }

public Q_SLOTS:
    // From the bus.
    Q_SCRIPTABLE void RegisterStatusNotifierItem(const QString& service);
    Q_SCRIPTABLE void RegisterStatusNotifierHost(const QString& service);

Q_SIGNALS:
    Q_SCRIPTABLE void StatusNotifierItemRegistered(const QString& service);
    Q_SCRIPTABLE void StatusNotifierHostRegistered();

private:
    std::atomic<bool> hasHost_ = false;
    mutable std::mutex mutex_;
    QStringList items_;
};

/// The panel of a desktop as far as status notifiers see it. It comes and goes as the test says.
class Panel {
public:
    explicit Panel(const QString& sessionBus);
    ~Panel();

    void appear();
    void disappear();
    void setHost(bool has) { watcher_->setHost(has); }

    /// Who has an icon in it.
    QStringList items() const { return watcher_->items(); }

    // Of the item that registered last.
    QVariant property(const QString& name) const;
    /// The bytes of its pictures.
    QByteArray icon() const;
    std::vector<PanelMenuItem> menu() const;
    /// False where there is no such line.
    bool choose(const QString& label) const;

private:
    QVariantList ask(const QString& path, const QString& interface, const QString& method,
                     const QVariantList& arguments) const;

    QDBusConnection bus_;
    QDBusConnection questions_;
    QThread thread_;
    std::unique_ptr<StatusNotifierWatcher> watcher_;
};

} // namespace brimlow::desktop
