#pragma once

#include <QProcess>

#include <string>
#include <vector>

namespace brimlow::platform {

/// A running touch-probe. It is told to end, and waited for, when this is destroyed.
class Probe {
public:
    /// `prefix` is a command that starts it, if need be.
    explicit Probe(const QProcessEnvironment& environment, QStringList prefix = {}) {
        prefix << QStringLiteral(BRIMLOW_TOUCH_PROBE) << QStringLiteral(BRIMLOW_TOUCH_IMAGE);
        const QString program = prefix.takeFirst();
        process_.setProcessEnvironment(environment);
        process_.start(program, prefix);
    }
    ~Probe() { finish(); }

    /// The next line it says, or "(silent)" when none comes in time.
    std::string next(int milliseconds = 10'000) {
        while (!process_.canReadLine()) {
            if (!process_.waitForReadyRead(milliseconds))
                return "(silent)";
        }
        return process_.readLine().chopped(1).toStdString();
    }
    /// All it says up to and including `last`, or up to the silence.
    std::vector<std::string> upTo(const std::string& last) {
        std::vector<std::string> lines;
        do
            lines.push_back(next());
        while (lines.back() != last && lines.back() != "(silent)");
        return lines;
    }

    /// Sends it a line; what it says up to "asked".
    std::vector<std::string> ask(const char* line = "unreadable?\n") {
        process_.write(line);
        process_.waitForBytesWritten();
        return upTo("asked");
    }

    /// Ends it; what it wrote on standard error.
    std::string finish() {
        process_.closeWriteChannel();
        process_.waitForFinished();
        return process_.readAllStandardError().toStdString();
    }

private:
    QProcess process_;
};

} // namespace brimlow::platform
