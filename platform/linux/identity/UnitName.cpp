#include "platform/linux/identity/UnitName.h"

#include <QByteArrayList>
#include <QRegularExpression>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace brimlow::platform {

namespace {

constexpr QLatin1StringView scopeEnd(".scope");
constexpr QLatin1StringView serviceEnd(".service");

// systemd writes bytes that a name may not hold as "\xNN", among them the "-" of an id.
QString withoutEscapes(QStringView escaped) {
    const QByteArray bytes = escaped.toUtf8();
    QByteArray plain;
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        bool valid = false;
        const int code =
            bytes.sliced(i).startsWith("\\x") ? bytes.mid(i + 2, 2).toInt(&valid, 16) : 0;
        plain += valid ? static_cast<char>(code) : bytes[i];
        if (valid)
            i += 3;
    }
    return QString::fromUtf8(plain);
}

} // namespace

QString unitOfControlGroups(QByteArrayView controlGroups) {
    // "0::/user.slice/.../app.slice/app-org.example.Editor-1234.scope", and with version 1 one such
    // line for each hierarchy.
    for (const QByteArray& line : controlGroups.toByteArray().split('\n')) {
        const QStringList path = QString::fromUtf8(line).split(u'/');
        for (auto part = path.rbegin(); part != path.rend(); ++part) {
            if (part->endsWith(scopeEnd) || part->endsWith(serviceEnd))
                return *part;
        }
    }
    return {};
}

QString applicationOfUnit(QStringView unit) {
    const bool scope = unit.endsWith(scopeEnd);
    if (!unit.startsWith("app-"_L1) || (!scope && !unit.endsWith(serviceEnd)))
        return {};
    QStringView name = unit.chopped(scope ? scopeEnd.size() : serviceEnd.size()).sliced(4);
    const qsizetype random = scope ? name.lastIndexOf(u'-') : name.indexOf(u'@');
    if (random >= 0)
        name.truncate(random);
    else if (scope)
        return {};
    return withoutEscapes(name.sliced(name.lastIndexOf(u'-') + 1));
}

QString applicationOfSnap(const QString& label) {
    // Behind it "(enforce)", or in a unit a random number in five groups before ".scope".
    static const QRegularExpression pattern(
        u"^snap\\.([a-z0-9_-]+)\\.([A-Za-z0-9-]+?)"
        "([.-][0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12})?(\\.scope|\\.service|\\s.*|$)"_s);
    const auto match = pattern.match(label);
    return match.hasMatch() ? match.captured(1) + u'_' + match.captured(2) : QString();
}

} // namespace brimlow::platform
