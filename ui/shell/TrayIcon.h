#pragma once

#include "ui/shell/BrimlowMenu.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QMenu>
#include <QObject>

#include <memory>

class QSystemTrayIcon;

namespace brimlow {

/// The icon in the panel and its menu, on every desktop whose panel takes status notifiers, also
/// one that comes later or again; elsewhere nothing. Never waits for the bus.
class TrayIcon : public QObject {
    Q_OBJECT

public:
    explicit TrayIcon(QDBusConnection bus, QObject* parent = nullptr);
    ~TrayIcon() override;

    void setItems(std::vector<MenuItem> items);
    /// Shown at a glance: whether taps do anything.
    void setOn(bool on);

Q_SIGNALS:
    /// The icon was clicked.
    void activated();

private Q_SLOTS:
    void hostRegistered();

private:
    void askForHost();
    void updateMenu();
    void updateIcon();

    QDBusConnection bus_;
    QDBusServiceWatcher watcher_;
    QMenu menu_;
    std::vector<MenuItem> items_;
    bool on_ = true;
    std::unique_ptr<QSystemTrayIcon> icon_; // null as long as no panel would show it
};

/// The text of a menu item such that the panel shows the title as it stands.
QString trayMenuText(const QString& title);

} // namespace brimlow
