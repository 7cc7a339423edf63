#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QVariantMap>

namespace brimlow::style {

struct PortalColour {
    double red;
    double green;
    double blue;
};

using PortalSettings = QMap<QString, QVariantMap>;

/// The settings portal of a desktop, on a connection of its own.
class FakePortal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    static void registerTypes();

    FakePortal(QDBusConnection bus, PortalSettings settings);
    ~FakePortal() override;

    void set(const QString& group, const QString& key, const QVariant& value);

public Q_SLOTS:
    PortalSettings ReadAll(const QStringList& groups) const;

private:
    QDBusConnection bus_;
    PortalSettings settings_;
};

} // namespace brimlow::style

Q_DECLARE_METATYPE(brimlow::style::PortalColour)
Q_DECLARE_METATYPE(brimlow::style::PortalSettings)
