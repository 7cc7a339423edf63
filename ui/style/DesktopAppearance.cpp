#include "ui/style/DesktopAppearance.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QGuiApplication>
#include <QPalette>

#include <algorithm>

namespace brimlow::style {

using namespace Qt::StringLiterals;

namespace {

constexpr auto service = "org.freedesktop.portal.Desktop"_L1;
constexpr auto path = "/org/freedesktop/portal/desktop"_L1;
constexpr auto interface = "org.freedesktop.portal.Settings"_L1;
constexpr auto appearanceGroup = "org.freedesktop.appearance"_L1;
constexpr auto gnomeGroup = "org.gnome.desktop.interface"_L1;

ColourScheme schemeOf(const QPalette& palette) {
    return palette.color(QPalette::WindowText).lightness()
                   > palette.color(QPalette::Window).lightness()
               ? ColourScheme::dark
               : ColourScheme::light;
}

/// Absent where the desktop has none, which is said with numbers outside of 0 to 1.
std::optional<QColor> toColour(const QVariant& value) {
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != u"(ddd)")
        return {};
    double red = -1;
    double green = -1;
    double blue = -1;
    argument.beginStructure();
    argument >> red >> green >> blue;
    argument.endStructure();
    const auto valid = [](double channel) { return channel >= 0 && channel <= 1; };
    if (!valid(red) || !valid(green) || !valid(blue))
        return {};
    return QColor::fromRgbF(static_cast<float>(red), static_cast<float>(green),
                            static_cast<float>(blue));
}

double toTextScale(const QVariant& value) {
    // X11's resolution has the factor in it already, and Qt scales the whole window by that.
    if (QGuiApplication::platformName() == u"xcb"_s)
        return 1;
    bool isNumber = false;
    const double factor = value.toDouble(&isNumber);
    return isNumber ? std::clamp(factor, 0.5, 3.0) : 1;
}

} // namespace

DesktopAppearance::DesktopAppearance(QDBusConnection bus, QObject* parent)
    : QObject(parent), bus_(std::move(bus)),
      portal_(service, bus_, QDBusServiceWatcher::WatchForRegistration),
      paletteScheme_(schemeOf(QGuiApplication::palette())), appearance_{.scheme = paletteScheme_} {
    if (!bus_.isConnected())
        return;
    // Without it the first connection of the process does not find the slot.
    qRegisterMetaType<QDBusVariant>();
    // Naming the service here would make Qt ask the bus for its owner, and wait.
    bus_.connect({}, path, interface, u"SettingChanged"_s, this,
                 SLOT(settingChanged(QString, QString, QDBusVariant)));
    connect(&portal_, &QDBusServiceWatcher::serviceRegistered, this, &DesktopAppearance::readAll);
    readAll();
}

void DesktopAppearance::settingChanged(const QString& group, const QString& key,
                                       const QDBusVariant& value) {
    const Appearance before = appearance_;
    take(group, key, value.variant());
    settle(before);
}

void DesktopAppearance::readAll() {
    auto call = QDBusMessage::createMethodCall(service, path, interface, u"ReadAll"_s);
    call << QStringList{appearanceGroup, gnomeGroup};
    auto* watcher = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        const QDBusMessage reply = watcher->reply();

        if (reply.type() != QDBusMessage::ReplyMessage || reply.signature() != u"a{sa{sv}}")
            return;
        const Appearance before = appearance_;
        const auto groups = qdbus_cast<QMap<QString, QVariantMap>>(reply.arguments().constFirst());
        for (const auto& [group, values] : groups.asKeyValueRange())
            for (const auto& [key, value] : values.asKeyValueRange())
                take(group, key, value);
        settle(before);
    });
}

void DesktopAppearance::take(const QString& group, const QString& key, const QVariant& value) {
    if (group == gnomeGroup && key == u"text-scaling-factor")
        appearance_.textScale = toTextScale(value);
    if (group != appearanceGroup)
        return;
    if (key == u"color-scheme") {
        const uint wish = value.toUInt();
        appearance_.scheme = wish == 1   ? ColourScheme::dark
                             : wish == 2 ? ColourScheme::light
                                         : paletteScheme_;
    } else if (key == u"accent-color") {
        appearance_.accent = toColour(value);
    } else if (key == u"contrast") {
        appearance_.highContrast = value.toUInt() == 1;
    }
}

void DesktopAppearance::settle(const Appearance& before) {
    if (appearance_ != before)
        Q_EMIT changed(appearance_);
}

} // namespace brimlow::style
