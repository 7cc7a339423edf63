#include "platform/EndSignals.h"
#include "ui/BrimlowApp.h"
#include "ui/DesktopPlatform.h"
#include "ui/Display.h"
#include "ui/files/DesktopFileDialogs.h"
#include "ui/shell/ApplicationService.h"
#include "ui/style/Symbols.h"

#include <QApplication>
#include <QDBusConnection>
#include <QIcon>

#include <csignal>
#include <cstdio>

using namespace brimlow;

namespace {

/// Whether the desktop has started the program at login, by itself. What we start is not told.
BrimlowApp::Launch takeLaunch() {
    constexpr auto variable = "BRIMLOW_AUTOSTART";
    const bool atLogin = qEnvironmentVariableIsSet(variable);
    qunsetenv(variable);
    if (QGuiApplication::platformName() == QStringLiteral("offscreen"))
        return BrimlowApp::Launch::withoutDisplay;
    return atLogin ? BrimlowApp::Launch::atLogin : BrimlowApp::Launch::byUser;
}

} // namespace

int main(int argc, char* argv[]) {
    std::signal(SIGPIPE, SIG_IGN); // a reader of our log that goes away takes nothing with it
    std::setbuf(stdout, nullptr);
    std::setbuf(stderr, nullptr);
    chooseDisplay();
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("brimlow"));
    QApplication::setDesktopFileName(platform::builtInBundleIdentifier);
    QApplication::setQuitOnLastWindowClosed(false);
    const platform::EndSignals endSignals;
    QApplication::setWindowIcon(QIcon::fromTheme(
        platform::builtInBundleIdentifier, style::symbolIcon(QStringLiteral("hand.tap.fill"))));
    ApplicationService service(QDBusConnection::sessionBus());
    const auto launch = takeLaunch();
    if (!service.start(launch == BrimlowApp::Launch::byUser
                           ? ApplicationService::Other::showsItself
                           : ApplicationService::Other::isLeftAlone))
        return 0;

    const DesktopPlatform platform;
    DesktopFileDialogs fileDialogs(QDBusConnection::sessionBus());
    BrimlowApp brimlow(fileDialogs);
    QObject::connect(&service, &ApplicationService::activated, &service,
                     [&brimlow] { brimlow.reopen(); });
    brimlow.launch(launch);
    return QApplication::exec();
}
