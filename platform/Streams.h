#pragma once

#include <QString>

namespace brimlow::platform {

/// Where the program's diagnostic lines go.
enum class Stream { output, error };

/// Takes whole lines as UTF-8, line feed included. Any thread.
class LogSink {
public:
    virtual ~LogSink() = default;
    virtual void write(Stream stream, const QByteArray& line) = 0;
};

/// Standard output and standard error, unbuffered: each line is one write.
class StandardStreams : public LogSink {
public:
    void write(Stream stream, const QByteArray& line) override;
};

/// Writes `text` and a line feed to the current platform's sink. Any thread.
void printLine(const QString& text);
void printErrorLine(const QString& text);

} // namespace brimlow::platform
