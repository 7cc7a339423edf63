#include "platform/EndSignals.h"
#include "tools/mocked/MockedPad.h"
#include "tools/recording/PadScript.h"
#include "tools/trackpad/LivePad.h"
#include "tools/trackpad/RunningBrimlow.h"
#include "tools/trackpad/TrackpadWindow.h"
#include "ui/style/ApplicationStyle.h"
#include "ui/style/DesktopAppearance.h"

#include <QApplication>
#include <QStandardPaths>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace brimlow;

namespace {

void say(const QString& text) {
    std::printf("%s\n", text.toUtf8().constData());
    std::fflush(stdout);
}

QProcessEnvironment environmentWith(const platform::MockedInput& input) {
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.remove(u"BRIMLOW_TOUCH_DEVICE"_s); // it would be heard instead
    for (const auto& [name, value] : input.environment())
        environment.insert(QString::fromStdString(name), QString::fromStdString(value));
    return environment;
}

void endWith(int status, bool wasUp) {
    if (status == 0 && !wasUp)
        say(u"Brimlow is running already, without this trackpad: quit it, then start this again."_s);
    QApplication::exit(status);
}

} // namespace

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    style::DesktopAppearance appearance(QDBusConnection::sessionBus());
    style::ApplicationStyle applicationStyle(appearance.appearance());
    applicationStyle.follow(appearance);
    const platform::EndSignals endSignals;

    platform::MockedInput input;
    trackpad::LivePad pad(input);
    trackpad::TrackpadWindow window(platform::ordinaryTrackpad().slotCount());
    auto& surface = window.surface();
    QObject::connect(&surface, &trackpad::TrackpadSurface::fingersChanged, &pad,
                     [&] { pad.setFingers(surface.fingers()); });
    QObject::connect(&pad, &trackpad::LivePad::unheard, &application, [] {
        say(u"Brimlow does not read the trackpad any more."_s);
        QApplication::exit(1);
    });

    trackpad::RunningBrimlow brimlow(environmentWith(input));
    bool wasUp = false;
    QObject::connect(&brimlow, &trackpad::RunningBrimlow::up, &window, [&] {
        wasUp = true;
        window.appear();
    });
    QObject::connect(&brimlow, &trackpad::RunningBrimlow::ended, &application,
                     [&](int status) { endWith(status, wasUp); });
    say(u"Brimlow with a trackpad on screen; it uses your preferences in %1/brimlow."_s.arg(
        QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)));
    if (const QString why = brimlow.start(); !why.isEmpty()) {
        say(why);
        return 1;
    }
    return QApplication::exec();
}
