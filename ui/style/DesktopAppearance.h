#pragma once

#include "ui/style/Appearance.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QObject>

namespace brimlow::style {

/// What the desktop asks of its applications' looks, from the settings portal of the session bus.
/// Where there is none, or it has no opinion, light or dark is judged by the palette that the
/// desktop gave the application. Never waits: the first answer is the palette's.
class DesktopAppearance : public QObject {
    Q_OBJECT

public:
    /// Make it before ApplicationStyle, which replaces the desktop's palette.
    explicit DesktopAppearance(QDBusConnection bus, QObject* parent = nullptr);

    const Appearance& appearance() const { return appearance_; }

Q_SIGNALS:
    void changed(const brimlow::style::Appearance& appearance);

private Q_SLOTS:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void readAll();
    void take(const QString& group, const QString& key, const QVariant& value);
    void settle(const Appearance& before);

    QDBusConnection bus_;
    QDBusServiceWatcher portal_;
    const ColourScheme paletteScheme_;
    Appearance appearance_;
};

} // namespace brimlow::style
