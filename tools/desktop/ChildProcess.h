#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

#include <optional>

namespace brimlow::desktop {

/// A program of ours in the background. It is stopped by its process id when this object is
/// destroyed, and by the kernel when the thread that started it ends first.
class ChildProcess {
public:
    ChildProcess(const QString& program, const QStringList& arguments,
                 const QProcessEnvironment& environment);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// Both go to the end of a file, from the next start on. Output that goes to no file has to be
    /// read here, or a talkative program stops once the pipe is full.
    void writeErrorsTo(const QString& file);
    void writeOutputTo(const QString& file);

    /// Empty when it runs, else why it does not.
    QString start();
    /// The first line on its standard output, without the line feed; empty when none came in time.
    QByteArray readFirstLine(int milliseconds);

    /// SIGTERM, and SIGKILL to one that has not ended after `milliseconds`; then false.
    bool stop(int milliseconds = 2000);

    bool running() const { return process_.state() == QProcess::Running; }
    qint64 pid() const { return process_.processId(); }
    QProcess& process() { return process_; }

private:
    QProcess process_;
};

/// Runs a program to its end and gives back what it wrote on standard output; absent when it cannot
/// be started, fails, or takes longer than `milliseconds`.
std::optional<QByteArray> outputOf(const QString& program, const QStringList& arguments,
                                   const QProcessEnvironment& environment, int milliseconds = 5000);

} // namespace brimlow::desktop
