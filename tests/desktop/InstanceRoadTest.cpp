#include "tests/desktop/Person.h"
#include "tests/desktop/WholeRoad.h"

#include <QDir>
#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace brimlow::desktop {
namespace {

constexpr platform::PadPoint right{0.95, 0.5};

/// The program as it is after login, and ways to come back to it.
class InstanceRoad : public WholeRoad {
protected:
    bool windowComes() {
        return desktop.waitFor([this](const DesktopState& now) {
            const auto* window = now.window(now.activeWindow);
            return window && window->pid == program->pid();
        });
    }
    bool windowGoes() {
        return comesTrue([this] { return !hasWindow(); });
    }
    /// What the program takes of the machine, in pages.
    qint64 memory() const {
        QFile numbers(u"/proc/%1/statm"_s.arg(program->pid()));
        EXPECT_TRUE(numbers.open(QIODevice::ReadOnly));
        return numbers.readAll().split(' ').at(1).toLongLong();
    }
    bool press(const QString& key) const { return desktop.run(u"xdotool"_s, {u"key"_s, key}); }
    /// As launchers do it.
    bool activate() const {
        return desktop.run(u"gdbus"_s,
                           {u"call"_s, u"--session"_s, u"--dest"_s, u"org.brimlow.Brimlow"_s,
                            u"--object-path"_s, u"/org/brimlow/Brimlow"_s, u"--method"_s,
                            u"org.freedesktop.Application.Activate"_s, u"{}"_s});
    }
    /// How it ends.
    std::optional<int> startSecond(QProcessEnvironment environment) {
        BrimlowProgram second(environment);
        EXPECT_EQ(second.start(), QString());
        return second.waitForEnd(5000);
    }
};

INSTANTIATE_TEST_SUITE_P(On, InstanceRoad, managers, nameOf);

TEST_P(InstanceRoad, ThereIsOneAndItCanAlwaysBeReached) {
    start({bindingAt(u"right"_s, right.x, right.y, TapAction::switchDesktopRight)});
    const auto terminal = openTerminal(u"work"_s);
    ASSERT_TRUE(becomesActive(terminal));
    EXPECT_FALSE(hasWindow()) << "started at login";

    EXPECT_EQ(startSecond(desktop.environment()), 0);
    EXPECT_FALSE(hasWindow()) << "neither was it the user who started the second one";
    auto environment = desktop.environment();
    environment.remove(u"BRIMLOW_AUTOSTART"_s);
    EXPECT_EQ(startSecond(environment), 0);
    EXPECT_TRUE(windowComes());
    const auto open = memory();
    ASSERT_TRUE(press(u"ctrl+w"_s) && windowGoes());
    EXPECT_TRUE(comesTrue([&] { return memory() < open / 2; }))
        << "what the window needed goes too";
    tap(right);
    EXPECT_TRUE(workspaceBecomes(1)) << "also without its window";

    ASSERT_TRUE(activate());
    ASSERT_TRUE(windowComes());
    QElapsedTimer timer;
    timer.start();
    ASSERT_TRUE(press(u"ctrl+q"_s));
    EXPECT_EQ(program->waitForEnd(5000), 0);
    std::printf("from the key to the end: %lld ms\n", timer.elapsed());
}

TEST_P(InstanceRoad, TheBusStartsItForALauncher) {
    const QString folder = desktop.environment().value(u"XDG_DATA_HOME"_s) + u"/dbus-1/services"_s;
    ASSERT_TRUE(QDir().mkpath(folder));
    QFile service(folder + u"/org.brimlow.Brimlow.service"_s);
    ASSERT_TRUE(service.open(QIODevice::WriteOnly));
    service.write("[D-BUS Service]\nName=org.brimlow.Brimlow\n"
                  "Exec=/usr/bin/env -u BRIMLOW_AUTOSTART "
                  + BrimlowProgram::builtProgram().toUtf8() + '\n');
    service.close();
    writePreferences(desktop.environment(), {});
    ASSERT_TRUE(activate());
    const auto active = [this] {
        return outputOf(u"xdotool"_s, {u"getactivewindow"_s, u"getwindowname"_s},
                        desktop.environment());
    };
    EXPECT_TRUE(comesTrue([&] { return active() == "Brimlow\n"; }));
    ASSERT_TRUE(press(u"ctrl+q"_s));
    EXPECT_TRUE(desktop.waitFor([](const DesktopState& now) { return now.windows.empty(); }));
}

TEST_P(InstanceRoad, WithoutABusASecondOneEndsToo) {
    auto environment = desktop.environment();
    start({});
    EXPECT_TRUE(program->stop());
    environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, u"unix:path=/nonexistent"_s);
    BrimlowProgram first(environment);
    ASSERT_EQ(first.start(), QString());
    ASSERT_FALSE(first.waitForLine(u"tap detection ENABLED"_s, 10000).isEmpty());
    EXPECT_EQ(startSecond(environment), 0);
    EXPECT_TRUE(first.stop());
    BrimlowProgram third(environment);
    ASSERT_EQ(third.start(), QString());
    EXPECT_FALSE(third.waitForLine(u"tap detection ENABLED"_s, 10000).isEmpty())
        << "the first one has left nothing behind that keeps others away";
}

} // namespace
} // namespace brimlow::desktop
