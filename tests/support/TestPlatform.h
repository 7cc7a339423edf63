#pragma once

#include "platform/NSBundle.h"
#include "platform/NSUserDefaults.h"
#include "platform/Platform.h"
#include "platform/Streams.h"
#include "platform/simulated/SimulatedApplications.h"
#include "platform/simulated/SimulatedInputDevices.h"
#include "platform/simulated/SimulatedSession.h"
#include "platform/simulated/SimulatedSettings.h"
#include "platform/simulated/VirtualTime.h"
#include "tests/support/Printing.h"

#include <QStringList>
#include <QTemporaryDir>

#include <mutex>
#include <optional>

namespace brimlow::test {

/// Keeps the lines that the system under test writes.
class CapturedLog final : public platform::LogSink {
public:
    void write(platform::Stream stream, const QByteArray& line) override;
    /// All lines since the last call, in order, without line feeds; if `stream` is given those of
    /// that one only, and the other's are dropped.
    QStringList take(std::optional<platform::Stream> stream = {});

private:
    struct Line {
        platform::Stream stream;
        QString text;
    };
    std::mutex mutex_;
    std::vector<Line> lines_;
};

/// A whole described world on virtual time, with preferences in a folder of its own. Make it first
/// in a test: it is the current platform for as long as it lives.
struct TestPlatform {
    QTemporaryDir folder;
    platform::VirtualTime time;
    CapturedLog log;
    platform::NSBundle bundle{
        QStringLiteral("/usr/bin/brimlow"),
        {{QStringLiteral("CFBundleIdentifier"), platform::builtInBundleIdentifier}},
        folder.filePath(QStringLiteral("libexec"))};
    platform::SimulatedInputDevices devices;
    platform::SimulatedApplications applications{QStringLiteral("/home/user")};
    platform::SimulatedSession session;
    platform::NSUserDefaults defaults{folder.filePath(QStringLiteral("preferences.json")), log};
    platform::SimulatedSettings settings;
    platform::Platform platform{services(defaults, applications, applications)};

    /// For tests that put something else in the place of some of it.
    platform::PlatformServices services(platform::NSUserDefaults& preferences,
                                        platform::Applications& installed, platform::Icons& icons) {
        return {.clock = time,
                .mainQueue = time,
                .log = log,
                .standardUserDefaults = preferences,
                .mainBundle = bundle,
                .inputDevices = devices,
                .applications = installed,
                .icons = icons,
                .session = session,
                .systemSettings = settings,
                .fileViewer = settings};
    }
};

} // namespace brimlow::test
