#include "platform/linux/identity/ProcessEvidence.h"

#include "platform/linux/identity/UnitName.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace brimlow::platform {

QString ProcessEvidence::launchedDesktopFile() {
    // Whatever that process starts inherits both variables.
    if (variable("GIO_LAUNCHED_DESKTOP_FILE_PID") != QByteArray::number(pid_))
        return {};
    return QFile::decodeName(variable("GIO_LAUNCHED_DESKTOP_FILE"));
}

QString ProcessEvidence::unitApplication() {
    const QString unit = unitOfControlGroups(process_.read(u"cgroup"));
    const QString id = applicationOfUnit(unit);
    if (id.isEmpty())
        return {};
    // A program that was started from a terminal is in the terminal's unit.
    const ProcessFolder parent(process_.parent(), procFolder_);
    const QByteArray ofParent = parent.read(u"cgroup");
    return ofParent.isEmpty() || unitOfControlGroups(ofParent) == unit ? QString() : id;
}

QString ProcessEvidence::flatpakApplication() const {
    bool inGroup = false;
    for (const QByteArray& line : process_.read(u"root/.flatpak-info").split('\n')) {
        if (line.startsWith('['))
            inGroup = line == "[Application]";
        else if (inGroup && line.startsWith("name="))
            return QString::fromUtf8(line.sliced(5));
    }
    return {};
}

QString ProcessEvidence::hintedDesktopFile() {
    return QFile::decodeName(variable("BAMF_DESKTOP_FILE_HINT"));
}

QString ProcessEvidence::snapApplication() const {
    const QString label =
        applicationOfSnap(QString::fromUtf8(process_.read(u"attr/current")).trimmed());
    return label.isEmpty() ? applicationOfSnap(unitOfControlGroups(process_.read(u"cgroup")))
                           : label;
}

QString ProcessEvidence::program() const {
    constexpr QLatin1StringView replaced(" (deleted)");
    const QString program = process_.linkTarget(u"exe");
    return program.endsWith(replaced) ? program.chopped(replaced.size()) : program;
}

QByteArray ProcessEvidence::variable(QByteArrayView name) {
    if (!environment_)
        environment_ = process_.read(u"environ").split('\0');
    for (const QByteArray& each : *environment_) {
        if (each.size() > name.size() && each.startsWith(name) && each[name.size()] == '=')
            return each.sliced(name.size() + 1);
    }
    return {};
}

QString idOfDesktopFile(const QString& file) {
    constexpr QLatin1StringView ending(".desktop");
    const QString name = file.sliced(file.lastIndexOf(u'/') + 1);
    return name.endsWith(ending) ? name.chopped(ending.size()) : QString();
}

} // namespace brimlow::platform
