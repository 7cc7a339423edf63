#include "ui/files/PortalFilter.h"

#include <QDBusMetaType>
#include <QMimeDatabase>

namespace brimlow {

PortalFilter portalFilterFor(const QString& contentType) {
    const QMimeType type = QMimeDatabase().mimeTypeForName(contentType);
    PortalFilter filter{type.comment(), {{PortalFilter::Kind::contentType, contentType}}};
    for (const QString& glob : type.globPatterns())
        filter.rules.append({PortalFilter::Kind::glob, glob});
    return filter;
}

void registerPortalFilter() {
    qDBusRegisterMetaType<PortalFilter::Rule>();
    qDBusRegisterMetaType<QList<PortalFilter::Rule>>();
    qDBusRegisterMetaType<PortalFilter>();
    qDBusRegisterMetaType<QList<PortalFilter>>();
}

QDBusArgument& operator<<(QDBusArgument& argument, const PortalFilter::Rule& rule) {
    argument.beginStructure();
    argument << static_cast<uint>(rule.kind) << rule.pattern;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalFilter::Rule& rule) {
    uint kind = 0;
    argument.beginStructure();
    argument >> kind >> rule.pattern;
    argument.endStructure();
    rule.kind = static_cast<PortalFilter::Kind>(kind);
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const PortalFilter& filter) {
    argument.beginStructure();
    argument << filter.name << filter.rules;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalFilter& filter) {
    argument.beginStructure();
    argument >> filter.name >> filter.rules;
    argument.endStructure();
    return argument;
}

} // namespace brimlow
