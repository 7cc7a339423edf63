#pragma once

#include "tools/desktop/ChildProcess.h"

#include <functional>

namespace brimlow::desktop {

/// Brimlow itself, started as a user would, and its log: both of its streams in one, line by line.
class BrimlowProgram {
public:
    /// The one beside the running executable.
    static QString builtProgram();

    /// `program`: the built program by default.
    explicit BrimlowProgram(const QProcessEnvironment& environment, const QString& program = {});

    /// Called with each line as it is read.
    std::function<void(const QString&)> onLine;

    /// Empty when it runs, else why it does not.
    QString start() { return process_.start(); }
    /// SIGTERM. False when it had to be killed.
    bool stop() { return process_.stop(); }
    qint64 pid() const { return process_.pid(); }

    /// To its standard input.
    void write(const QByteArray& text) { process_.process().write(text); }

    /// Reads on until a line contains `text`; lines that were read before do not count. An empty
    /// result means that none came in time, or that the program has ended.
    QString waitForLine(const QString& text, int milliseconds = 5000);
    /// Reads on for that long, or until the program ends.
    void readFor(int milliseconds);
    /// The exit status, or nothing when it still runs then, or was killed.
    std::optional<int> waitForEnd(int milliseconds = 5000);

    /// All lines read so far.
    const QStringList& lines() const { return lines_; }

private:
    /// The next line; a null text when none came in time.
    QString readLine(qint64 milliseconds);

    ChildProcess process_;
    QStringList lines_;
};

} // namespace brimlow::desktop
