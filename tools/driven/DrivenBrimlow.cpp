#include "tools/driven/DrivenBrimlow.h"

#include <QDeadlineTimer>

#include <cstdio>

namespace brimlow::desktop {

DrivenBrimlow::DrivenBrimlow(const QString& program, const QProcessEnvironment& environment,
                             Echo echo)
    : process_(program, {}, environment), echo_(echo) {
    process_.process().setProcessChannelMode(QProcess::MergedChannels);
}

QString DrivenBrimlow::waitForLine(const QString& part, int milliseconds) {
    QProcess& process = process_.process();
    const QDeadlineTimer deadline(milliseconds);
    while (true) {
        while (process.canReadLine()) {
            const QByteArray line = process.readLine().chopped(1);
            if (echo_ == Echo::yes) {
                std::printf("  %s\n", line.constData());
                std::fflush(stdout);
            }
            lines_ += QString::fromUtf8(line);
            if (lines_.last().contains(part))
                return lines_.last();
        }
        if (!process.waitForReadyRead(static_cast<int>(deadline.remainingTime())))
            return {};
    }
}

} // namespace brimlow::desktop
