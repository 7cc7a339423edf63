#include "ui/BrimlowApp.h"
#include "ui/DesktopPlatform.h"
#include "ui/Display.h"
#include "ui/files/DesktopFileDialogs.h"

#include <QApplication>
#include <QDBusConnection>

#include <csignal>
#include <cstdio>

using namespace brimlow;

namespace {

/// A program that the desktop has started at login by itself stays out of sight.
bool isWindowWanted() {
    return !qEnvironmentVariableIsSet("BRIMLOW_AUTOSTART")
           && QGuiApplication::platformName() != QStringLiteral("offscreen");
}

} // namespace

int main(int argc, char* argv[]) {
    std::signal(SIGPIPE, SIG_IGN); // a reader of our log that goes away takes nothing with it
    std::setbuf(stdout, nullptr);
    std::setbuf(stderr, nullptr);
    chooseDisplay();
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("brimlow"));
    QApplication::setQuitOnLastWindowClosed(false);

    const DesktopPlatform platform;
    DesktopFileDialogs fileDialogs(QDBusConnection::sessionBus());
    BrimlowApp brimlow(fileDialogs);
    brimlow.start();
    if (isWindowWanted())
        brimlow.openMainWindow();
    return QApplication::exec();
}
