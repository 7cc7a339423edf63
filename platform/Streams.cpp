#include "platform/Streams.h"

#include "platform/Platform.h"

#include <QByteArray>

#include <unistd.h>

#include <cerrno>

namespace brimlow::platform {

void StandardStreams::write(Stream stream, const QByteArray& line) {
    const int descriptor = stream == Stream::output ? STDOUT_FILENO : STDERR_FILENO;
    qsizetype done = 0;
    while (done < line.size()) {
        const auto written = ::write(descriptor, line.constData() + done,
                                     static_cast<std::size_t>(line.size() - done));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return; // a log that nobody reads must not stop a tap
        done += written;
    }
}

void printLine(const QString& text) {
    Platform::current().log.write(Stream::output, text.toUtf8() + '\n');
}

void printErrorLine(const QString& text) {
    Platform::current().log.write(Stream::error, text.toUtf8() + '\n');
}

} // namespace brimlow::platform
