#include "tools/desktop/BrimlowProgram.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>

namespace brimlow::desktop {

using namespace Qt::StringLiterals;

QString BrimlowProgram::builtProgram() {
    const QFileInfo self(QFileInfo(u"/proc/self/exe"_s).symLinkTarget());
    return self.dir().filePath(u"brimlow"_s);
}

BrimlowProgram::BrimlowProgram(const QProcessEnvironment& environment, const QString& program)
    : process_(program.isEmpty() ? builtProgram() : program, {}, environment) {
    process_.process().setProcessChannelMode(QProcess::MergedChannels);
    process_.process().setStandardInputFile({}); // write() goes there
}

QString BrimlowProgram::readLine(qint64 milliseconds) {
    auto& process = process_.process();
    const QDeadlineTimer deadline(milliseconds);
    while (!process.canReadLine()) {
        if (!process.waitForReadyRead(static_cast<int>(deadline.remainingTime()))
            && !process.canReadLine())
            return {};
    }
    QString line = QString::fromUtf8(process.readLine());
    line.chop(1);
    lines_ << line;
    if (onLine)
        onLine(line);
    return line;
}

QString BrimlowProgram::waitForLine(const QString& text, int milliseconds) {
    const QDeadlineTimer deadline(milliseconds);
    for (;;) {
        const QString line = readLine(deadline.remainingTime());
        if (line.isNull() || line.contains(text))
            return line;
    }
}

void BrimlowProgram::readFor(int milliseconds) {
    const QDeadlineTimer deadline(milliseconds);
    while (!deadline.hasExpired() && !readLine(deadline.remainingTime()).isNull()) {
        // onLine has seen it
    }
}

std::optional<int> BrimlowProgram::waitForEnd(int milliseconds) {
    readFor(milliseconds);
    auto& process = process_.process();
    process.waitForFinished(100);
    if (process.state() != QProcess::NotRunning || process.exitStatus() != QProcess::NormalExit)
        return std::nullopt;
    return process.exitCode();
}

} // namespace brimlow::desktop
