#include "tests/ui/style/FakePortal.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>

namespace brimlow::style {

using namespace Qt::StringLiterals;

namespace {
const QString service = u"org.freedesktop.portal.Desktop"_s;
const QString path = u"/org/freedesktop/portal/desktop"_s;
} // namespace

QDBusArgument& operator<<(QDBusArgument& argument, const PortalColour& colour) {
    argument.beginStructure();
    argument << colour.red << colour.green << colour.blue;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalColour& colour) {
    argument.beginStructure();
    argument >> colour.red >> colour.green >> colour.blue;
    argument.endStructure();
    return argument;
}

void FakePortal::registerTypes() {
    qDBusRegisterMetaType<PortalColour>();
    qDBusRegisterMetaType<PortalSettings>();
}

FakePortal::FakePortal(QDBusConnection bus, PortalSettings settings)
    : bus_(std::move(bus)), settings_(std::move(settings)) {
    bus_.registerObject(path, this, QDBusConnection::ExportAllSlots);
    bus_.registerService(service);
}

FakePortal::~FakePortal() {
    bus_.unregisterService(service);
    bus_.unregisterObject(path);
}

void FakePortal::set(const QString& group, const QString& key, const QVariant& value) {
    settings_[group][key] = value;
    auto signal =
        QDBusMessage::createSignal(path, u"org.freedesktop.portal.Settings"_s, u"SettingChanged"_s);
    signal << group << key << QVariant::fromValue(QDBusVariant(value));
    bus_.send(signal);
}

PortalSettings FakePortal::ReadAll(const QStringList& groups) const {
    PortalSettings asked;
    for (const auto& [group, values] : settings_.asKeyValueRange())
        if (groups.contains(group))
            asked.insert(group, values);
    return asked;
}

} // namespace brimlow::style
