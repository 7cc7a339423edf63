#include "tools/desktop/MockedLogind.h"

#include <QFile>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace brimlow::desktop {

namespace {

constexpr int startLimit = 15000; // ms
const auto managerPath = "/org/freedesktop/login1"_L1;
const auto mock = "org.freedesktop.DBus.Mock."_L1;

} // namespace

bool MockedLogind::startBus() {
    bus_ = child(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--nopidfile"_s,
                                    u"--address="_s + address(), u"--print-address=1"_s});
    return bus_->start().isEmpty() && !bus_->readFirstLine(startLimit).isEmpty();
}

bool MockedLogind::startLogind() {
    QFile::remove(logFile());
    // The system's Python: another that comes first in PATH does not have the module.
    logind_ = child(u"/usr/bin/python3"_s, {u"-m"_s, u"dbusmock"_s, u"--template"_s, u"logind"_s});
    logind_->writeOutputTo(logFile());
    return logind_->start().isEmpty()
           && outputOf(u"gdbus"_s,
                       {u"wait"_s, u"--address"_s, address(), u"org.freedesktop.login1"_s},
                       QProcessEnvironment::systemEnvironment(), startLimit)
           // The template has the first not at all, and the second fails.
           && answer(u"GetSessionByPID"_s, u"raise ValueError()"_s)
           && answer(u"GetUser"_s, u"ret = '%1/user/%d' % args[0]"_s.arg(managerPath));
}

bool MockedLogind::addSession(const QString& id) {
    return call(managerPath, mock + "AddSession"_L1,
                {id, u"seat0"_s, QString::number(getuid()), u"user"_s, u"true"_s});
}

bool MockedLogind::setProperty(const QString& session, const QString& name, const QString& value) {
    return call(pathOf(session), mock + "UpdateProperties"_L1,
                {u"org.freedesktop.login1.Session"_s, u"{'%1': %2}"_s.arg(name, value)});
}

bool MockedLogind::setDisplay(const QString& display) {
    return call(managerPath + u"/user/"_s + QString::number(getuid()),
                u"org.freedesktop.DBus.Properties.Set"_s,
                {u"org.freedesktop.login1.User"_s, u"Display"_s, display});
}

bool MockedLogind::answer(const QString& method, const QString& code) {
    return call(managerPath, mock + "AddMethod"_L1,
                {u"org.freedesktop.login1.Manager"_s, method, u"u"_s, u"o"_s, code});
}

bool MockedLogind::call(const QString& path, const QString& method, const QStringList& arguments) {
    return outputOf(u"gdbus"_s,
                    QStringList{u"call"_s, u"--address"_s, address(), u"--dest"_s,
                                u"org.freedesktop.login1"_s, u"--object-path"_s, path,
                                u"--method"_s, method}
                        + arguments,
                    QProcessEnvironment::systemEnvironment())
        .has_value();
}

QString MockedLogind::pathOf(const QString& session) {
    return managerPath + u"/session/"_s + session;
}

QByteArray MockedLogind::log() const {
    QFile file(logFile());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

std::unique_ptr<ChildProcess> MockedLogind::child(const QString& program,
                                                  const QStringList& arguments) {
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"DBUS_SYSTEM_BUS_ADDRESS"_s, address());
    environment.insert(u"PYTHONUNBUFFERED"_s, u"1"_s);
    auto process = std::make_unique<ChildProcess>(program, arguments, environment);
    process->writeErrorsTo(logFile());
    return process;
}

} // namespace brimlow::desktop
