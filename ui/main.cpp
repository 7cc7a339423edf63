#include "platform/ChooseSession.h"
#include "platform/NSBundle.h"
#include "platform/NSUserDefaults.h"
#include "platform/Platform.h"
#include "platform/QtMainQueue.h"
#include "platform/Streams.h"
#include "platform/SystemClock.h"
#include "platform/linux/access/RuleInstaller.h"
#include "platform/linux/applications/GioApplications.h"
#include "platform/linux/evdev/EvdevInputDevices.h"
#include "platform/linux/fileviewer/DesktopFileViewer.h"
#include "platform/linux/icons/ThemeIcons.h"
#include "platform/linux/logind/LogindSession.h"
#include "ui/BrimlowApp.h"
#include "ui/Display.h"
#include "ui/access/AccessSettings.h"
#include "ui/controls/FocusRing.h"
#include "ui/style/ApplicationStyle.h"
#include "ui/style/DesktopAppearance.h"

#include <QApplication>
#include <QThreadPool>

#include <csignal>
#include <cstdio>

using namespace brimlow;

int main(int argc, char* argv[]) {
    std::signal(SIGPIPE, SIG_IGN); // a reader of our log that goes away takes nothing with it
    std::setbuf(stdout, nullptr);
    std::setbuf(stderr, nullptr);
    chooseDisplay();
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("brimlow"));
    QApplication::setQuitOnLastWindowClosed(false);

    platform::SystemClock clock;
    platform::QtMainQueue mainQueue;
    platform::StandardStreams log;
    platform::NSUserDefaults defaults(platform::NSUserDefaults::standardPath(), log, &mainQueue);
    auto bundle = platform::NSBundle::forApplicationAt(QApplication::applicationFilePath());
    platform::EvdevInputDevices inputDevices;
    const platform::LogindSession logindSession(
        [&](bool active) { inputDevices.setSessionActive(active); });
    platform::GioApplications applications;
    platform::ThemeIcons icons(clock);
    const auto session = platform::chooseSession(applications, [](const QString& reason) {
        platform::printErrorLine(QStringLiteral("Brimlow: %1, so Brimlow ends").arg(reason));
        QApplication::exit(1);
    });
    style::DesktopAppearance appearance(QDBusConnection::sessionBus());
    style::ApplicationStyle style(appearance.appearance());
    style.follow(appearance);
    const controls::KeyboardFocus keyboardFocus;
    platform::RuleInstaller installer(
        bundle.pathForAuxiliaryExecutable(QStringLiteral("brimlow-access-helper")));
    AccessSettings settings(installer);
    platform::DesktopFileViewer fileViewer;
    const platform::Platform platform({.clock = clock,
                                       .mainQueue = mainQueue,
                                       .log = log,
                                       .standardUserDefaults = defaults,
                                       .mainBundle = bundle,
                                       .inputDevices = inputDevices,
                                       .applications = applications,
                                       .icons = icons,
                                       .session = *session,
                                       .systemSettings = settings,
                                       .fileViewer = fileViewer});
    BrimlowApp brimlow;
    brimlow.start();
    // Now, so that the first tap does not wait for it.
    QThreadPool::globalInstance()->start([&] { applications.catalogue(); });
    const int result = QApplication::exec();
    QThreadPool::globalInstance()->waitForDone(); // what runs there looks at the platform
    return result;
}
