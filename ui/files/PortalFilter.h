#pragma once

#include <QDBusArgument>
#include <QList>
#include <QString>

namespace brimlow {

/// Which files a dialog of the portal shows; a(sa(us)) on the bus.
struct PortalFilter {
    enum class Kind : uint { glob = 0, contentType = 1 };
    struct Rule {
        Kind kind;
        QString pattern;
    };

    QString name; // for the user
    QList<Rule> rules;
};

/// Files of that MIME type.
PortalFilter portalFilterFor(const QString& contentType);

/// Call it before a filter goes onto the bus.
void registerPortalFilter();

QDBusArgument& operator<<(QDBusArgument& argument, const PortalFilter::Rule& rule);
const QDBusArgument& operator>>(const QDBusArgument& argument, PortalFilter::Rule& rule);
QDBusArgument& operator<<(QDBusArgument& argument, const PortalFilter& filter);
const QDBusArgument& operator>>(const QDBusArgument& argument, PortalFilter& filter);

} // namespace brimlow
