#include "platform/NSTask.h"

#include "platform/NSBundle.h"
#include "platform/Platform.h"

#include <QProcess>

namespace brimlow::platform {

using namespace Qt::StringLiterals;

namespace {

QString installedPath(const QString& path) {
    return path == "/usr/bin/tccutil"_L1
               ? Platform::current().mainBundle.pathForAuxiliaryExecutable(u"tccutil"_s)
               : path;
}

} // namespace

NSTask::Ending NSTask::run(const QString& launchPath, const QStringList& arguments) {
    const QString path = installedPath(launchPath);
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(path, arguments, QIODevice::ReadOnly);
    if (!process.waitForStarted(-1))
        return {{}, u"%1: %2"_s.arg(path, process.errorString())};
    process.waitForFinished(-1);
    const bool killed = process.exitStatus() == QProcess::CrashExit;
    return {killed ? 128 + process.exitCode() : process.exitCode(), {}};
}

} // namespace brimlow::platform
