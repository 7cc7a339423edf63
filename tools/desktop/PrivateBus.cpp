#include "tools/desktop/PrivateBus.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace brimlow::desktop {

namespace {

constexpr int startLimit = 15000; // ms; a loaded machine takes seconds for what takes 0.1 s alone

constexpr auto configuration =
    R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>%1</listen>
  <auth>EXTERNAL</auth>
  <servicedir>%2</servicedir>
  <servicedir>%3</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)"_L1;

} // namespace

QString PrivateBus::start(const QProcessEnvironment& environment, const QStringList& services) {
    if (const QString why = configure(environment, services); !why.isEmpty())
        return why;
    daemon_ = std::make_unique<ChildProcess>(
        u"dbus-daemon"_s,
        QStringList{u"--config-file=%1/bus.conf"_s.arg(folder_), u"--nofork"_s, u"--nopidfile"_s,
                    u"--print-address=1"_s},
        environment);
    daemon_->writeErrorsTo(folder_ + u"/log"_s);
    if (const QString why = daemon_->start(); !why.isEmpty())
        return why;
    return daemon_->readFirstLine(startLimit).isEmpty() ? u"dbus-daemon names no address"_s
                                                        : QString();
}

QString PrivateBus::configure(const QProcessEnvironment& environment,
                              const QStringList& services) const {
    const QString serviceFolder = folder_ + u"/services"_s;
    QDir().mkpath(serviceFolder);
    for (const QString& service : services)
        QFile::copy(u"/usr/share/dbus-1/services/%1.service"_s.arg(service),
                    u"%1/%2.service"_s.arg(serviceFolder, service));
    QFile file(folder_ + u"/bus.conf"_s);
    const QString own = environment.value(u"XDG_DATA_HOME"_s) + u"/dbus-1/services"_s;
    const QByteArray text = QString(configuration).arg(address(), serviceFolder, own).toUtf8();
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        return u"%1 cannot be written"_s.arg(file.fileName());
    return {};
}

} // namespace brimlow::desktop
