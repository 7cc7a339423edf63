#include "tools/trackpad/RunningBrimlow.h"

#include "tools/desktop/BrimlowProgram.h"

#include <cstdio>

namespace brimlow::trackpad {

RunningBrimlow::RunningBrimlow(const QProcessEnvironment& environment)
    : process_(desktop::BrimlowProgram::builtProgram(), {}, environment) {
    QProcess& process = process_.process();
    process.setProcessChannelMode(QProcess::MergedChannels);
    connect(&process, &QProcess::readyRead, this, &RunningBrimlow::readLog);
    connect(&process, &QProcess::finished, this, [this](int code, QProcess::ExitStatus status) {
        readLog();
        Q_EMIT ended(status == QProcess::NormalExit ? code : 1);
    });
}

void RunningBrimlow::readLog() {
    while (process_.process().canReadLine()) {
        const QByteArray line = process_.process().readLine();
        std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stdout);
        if (line.contains("tap detection "))
            Q_EMIT up();
    }
    std::fflush(stdout);
}

} // namespace brimlow::trackpad
