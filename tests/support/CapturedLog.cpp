#include "tests/support/TestPlatform.h"

namespace brimlow::test {

void CapturedLog::write(platform::Stream stream, const QByteArray& line) {
    const std::lock_guard lock(mutex_);
    lines_.push_back({stream, QString::fromUtf8(line).chopped(1)});
}

QStringList CapturedLog::take(std::optional<platform::Stream> stream) {
    const std::lock_guard lock(mutex_);
    QStringList result;
    for (const auto& line : std::exchange(lines_, {})) {
        if (!stream || line.stream == stream)
            result << line.text;
    }
    return result;
}

} // namespace brimlow::test
