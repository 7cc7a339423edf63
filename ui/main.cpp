#include "platform/ChooseSession.h"
#include "platform/NSBundle.h"
#include "platform/NSUserDefaults.h"
#include "platform/Platform.h"
#include "platform/QtMainQueue.h"
#include "platform/Streams.h"
#include "platform/SystemClock.h"
#include "platform/linux/applications/GioApplications.h"
#include "platform/linux/evdev/EvdevInputDevices.h"
#include "platform/linux/icons/ThemeIcons.h"
#include "ui/BrimlowApp.h"

#include <QCoreApplication>
#include <QThreadPool>

#include <csignal>
#include <cstdio>

using namespace brimlow;

int main(int argc, char* argv[]) {
    std::signal(SIGPIPE, SIG_IGN); // a reader of our log that goes away takes nothing with it
    std::setbuf(stdout, nullptr);
    std::setbuf(stderr, nullptr);
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("brimlow"));

    platform::SystemClock clock;
    platform::QtMainQueue mainQueue;
    platform::StandardStreams log;
    platform::NSUserDefaults defaults(platform::NSUserDefaults::standardPath(), log, &mainQueue);
    auto bundle = platform::NSBundle::forApplicationAt(QCoreApplication::applicationFilePath());
    platform::EvdevInputDevices inputDevices;
    platform::GioApplications applications;
    platform::ThemeIcons icons(clock);
    const auto session = platform::chooseSession(applications, [](const QString& reason) {
        platform::printErrorLine(QStringLiteral("Brimlow: %1, so Brimlow ends").arg(reason));
        QCoreApplication::exit(1);
    });
    const platform::Platform platform(clock, mainQueue, log, defaults, bundle, inputDevices,
                                      applications, icons, *session);
    BrimlowApp brimlow;
    brimlow.start();
    // Now, so that the first tap does not wait for it.
    QThreadPool::globalInstance()->start([&] { applications.catalogue(); });
    const int result = QCoreApplication::exec();
    QThreadPool::globalInstance()->waitForDone(); // what runs there looks at the platform
    return result;
}
