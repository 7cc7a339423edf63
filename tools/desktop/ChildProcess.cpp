#include "tools/desktop/ChildProcess.h"

#include <QDeadlineTimer>

#include <sys/prctl.h>
#include <unistd.h>

#include <csignal>

using namespace Qt::StringLiterals;

namespace brimlow::desktop {

ChildProcess::ChildProcess(const QString& program, const QStringList& arguments,
                           const QProcessEnvironment& environment) {
    process_.setProgram(program);
    process_.setArguments(arguments);
    process_.setProcessEnvironment(environment);
    process_.setStandardInputFile(QProcess::nullDevice());
    process_.setChildProcessModifier([parent = getpid()] {
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        if (getppid() != parent) // it died before the line above
            _exit(1);
    });
}

ChildProcess::~ChildProcess() {
    stop();
}

void ChildProcess::writeErrorsTo(const QString& file) {
    process_.setStandardErrorFile(file, QIODevice::Append);
}

void ChildProcess::writeOutputTo(const QString& file) {
    process_.setStandardOutputFile(file, QIODevice::Append);
}

QString ChildProcess::start() {
    process_.start();
    if (process_.waitForStarted())
        return {};
    return u"%1 cannot be started: %2"_s.arg(process_.program(), process_.errorString());
}

QByteArray ChildProcess::readFirstLine(int milliseconds) {
    const QDeadlineTimer deadline(milliseconds);
    while (!process_.canReadLine()) {
        if (!process_.waitForReadyRead(static_cast<int>(deadline.remainingTime())))
            return {};
    }
    return process_.readLine().trimmed();
}

bool ChildProcess::stop(int milliseconds) {
    if (process_.state() == QProcess::NotRunning)
        return true;
    process_.terminate();
    if (process_.waitForFinished(milliseconds))
        return true;
    process_.kill();
    process_.waitForFinished();
    return false;
}

std::optional<QByteArray> outputOf(const QString& program, const QStringList& arguments,
                                   const QProcessEnvironment& environment, int milliseconds) {
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program, arguments, QIODevice::ReadOnly);
    if (!process.waitForFinished(milliseconds) || process.exitStatus() != QProcess::NormalExit
        || process.exitCode() != 0)
        return std::nullopt;
    return process.readAllStandardOutput();
}

} // namespace brimlow::desktop
