#pragma once

#include "tools/desktop/ChildProcess.h"

#include <QStringList>

namespace brimlow::desktop {

/// The real program, started as a user would start it and judged by what it says. It is stopped
/// when this object is destroyed.
class DrivenBrimlow {
public:
    enum class Echo { no, yes };

    /// With `Echo::yes` all that it says also runs by on our own standard output.
    DrivenBrimlow(const QString& program, const QProcessEnvironment& environment,
                  Echo echo = Echo::no);

    /// Empty when it runs, else why it does not.
    QString start() { return process_.start(); }

    /// Reads on, on both streams in their true order, up to the first line with `part` in it. Null
    /// when none came within `milliseconds`, or the program ended.
    QString waitForLine(const QString& part, int milliseconds = 10000);

    /// All lines that were read so far.
    const QStringList& lines() const { return lines_; }

    /// SIGTERM. False when it had to be killed.
    bool stop() { return process_.stop(); }
    qint64 pid() const { return process_.pid(); }
    QProcess& process() { return process_.process(); }

private:
    ChildProcess process_;
    Echo echo_;
    QStringList lines_;
};

} // namespace brimlow::desktop
