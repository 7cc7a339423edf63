#include "ui/BrimlowApp.h"
#include "ui/DesktopPlatform.h"
#include "ui/Display.h"

#include <QApplication>

#include <csignal>
#include <cstdio>

using namespace brimlow;

int main(int argc, char* argv[]) {
    std::signal(SIGPIPE, SIG_IGN); // a reader of our log that goes away takes nothing with it
    std::setbuf(stdout, nullptr);
    std::setbuf(stderr, nullptr);
    chooseDisplay();
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("brimlow"));
    QApplication::setQuitOnLastWindowClosed(false);

    const DesktopPlatform platform;
    BrimlowApp brimlow;
    brimlow.start();
    return QApplication::exec();
}
