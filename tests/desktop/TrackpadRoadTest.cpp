#include "tests/desktop/X11Desktop.h"
#include "tools/desktop/BrimlowProgram.h"
#include "tools/desktop/ScratchPreferences.h"
#include "tools/desktop/ScreenReader.h"
#include "tools/recording/PadComposer.h"
#include "ui/maps/PadGeometry.h"

#include <QFileInfo>
#include <QThread>

using namespace Qt::StringLiterals;

namespace brimlow::desktop {
namespace {

using platform::PadPoint;

constexpr PadPoint right{0.9, 0.5};
constexpr PadPoint bottom{0.5, 0.2};
constexpr PadPoint middle{0.4, 0.6};

/// A mouse on the drawn trackpad, and Brimlow that listens to it.
class TrackpadRoad : public X11Desktop {
protected:
    void start() {
        auto click = bindingAt(u"click"_s, bottom.x, bottom.y, TapAction::switchDesktopRight);
        click.requireClick = true;
        writePreferences(
            desktop.environment(),
            {bindingAt(u"right"_s, right.x, right.y, TapAction::switchDesktopRight), click});
        environment = desktop.environment();
        ASSERT_EQ(reader.start(environment), QString());
        program.emplace(environment,
                        QFileInfo(BrimlowProgram::builtProgram()).path() + u"/brimlow-trackpad"_s);
        ASSERT_EQ(program->start(), QString());
        ASSERT_TRUE(says(u"click detection active"_s));
        ASSERT_TRUE(desktop.waitFor([this](const DesktopState& now) {
            const auto own = std::ranges::find(now.windows, program->pid(), &DesktopWindow::pid);
            window = own == now.windows.end() ? 0 : own->number;
            return window != 0;
        }));
        ASSERT_TRUE(desktop.waitFor([this](const DesktopState&) {
            const auto pad = reader.find(u"Trackpad"_s);
            surface = maps::surfaceIn(pad ? pad->place.size() : QSize(), 1000, {});
            surface.translate(pad ? pad->place.topLeft() : QPoint());
            return pad && desktop.run(u"xdotool"_s, {u"mousemove"_s, u"0"_s, u"0"_s});
        }));
    }

    bool says(const QString& line) { return !program->waitForLine(line, 10000).isEmpty(); }
    void xdotool(const QStringList& arguments) const {
        ASSERT_TRUE(desktop.run(u"xdotool"_s, arguments));
    }
    void moveTo(PadPoint point) const {
        const QPoint on = maps::pointOn(surface, {point.x, point.y}).toPoint();
        xdotool({u"mousemove"_s, QString::number(on.x()), QString::number(on.y())});
    }
    void click(PadPoint point, int button = 1) const {
        moveTo(point);
        xdotool({u"click"_s, QString::number(button)});
    }
    static void waitLongerThanATapLasts() { QThread::msleep(600); }

    QProcessEnvironment environment;
    ScreenReader reader;
    std::optional<BrimlowProgram> program;
    std::uint32_t window = 0;
    QRectF surface; // on screen
};

INSTANTIATE_TEST_SUITE_P(On, TrackpadRoad, managers, nameOf);

TEST_P(TrackpadRoad, TheMouseTapsDragsHoldsAndClicks) {
    const auto terminal = openTerminal(u"work"_s);
    start();
    ASSERT_TRUE(becomesActive(terminal));

    moveTo(middle);
    xdotool({u"mousedown"_s, u"1"_s});
    moveTo(right);
    xdotool({u"mouseup"_s, u"1"_s});
    xdotool({u"keydown"_s, u"shift"_s});
    click(middle);
    click(right);
    if (qEnvironmentVariableIsSet("BRIMLOW_TEST_PICTURES"))
        desktop.screenshot(qEnvironmentVariable("BRIMLOW_TEST_PICTURES") + u"/trackpad.png"_s);
    waitLongerThanATapLasts();
    xdotool({u"keyup"_s, u"shift"_s});
    click(bottom);
    EXPECT_TRUE(says(u"require-click 'click': no click within 0.50s"_s));
    EXPECT_TRUE(program->lines().filter(u"matched"_s).isEmpty()) << "before there was a tap";
    EXPECT_EQ(desktop.state()->activeWindow, terminal) << "a trackpad takes no focus";

    waitLongerThanATapLasts();
    click(right);
    EXPECT_TRUE(says(u"matched 'right' → Switch Desktop Right → Switching right"_s));
    ASSERT_TRUE(workspaceBecomes(1));
    EXPECT_EQ(desktop.state()->window(window)->workspace, -1) << "it comes along";
    waitLongerThanATapLasts();
    click(bottom, 3);
    EXPECT_TRUE(says(u"matched 'click' → Switch Desktop Right → Switching right"_s));
    EXPECT_TRUE(workspaceBecomes(2));
}

TEST_P(TrackpadRoad, OneOfTheTwoEndsWithTheOther) {
    start();
    BrimlowProgram second(environment, QFileInfo(BrimlowProgram::builtProgram()).path()
                                           + u"/brimlow-trackpad"_s);
    ASSERT_EQ(second.start(), QString());
    EXPECT_FALSE(second.waitForLine(u"Brimlow is running already"_s).isEmpty());
    EXPECT_EQ(second.waitForEnd(), 0);

    ASSERT_TRUE(desktop.run(u"wmctrl"_s, {u"-i"_s, u"-c"_s, u"0x%1"_s.arg(window, 0, 16)}));
    EXPECT_EQ(program->waitForEnd(), 0);
    BrimlowProgram alone(environment);
    ASSERT_EQ(alone.start(), QString());
    EXPECT_FALSE(alone.waitForLine(u"tap detection ENABLED"_s).isEmpty())
        << "no other is left behind";
    EXPECT_TRUE(alone.stop());
}

} // namespace
} // namespace brimlow::desktop
