#include "tests/desktop/WholeRoad.h"

#include <csignal>

using namespace Qt::StringLiterals;

namespace brimlow::desktop {
namespace {

using platform::PadPoint;
using platform::PadScript;

constexpr PadPoint right{0.95, 0.5};
constexpr PadPoint left{0.05, 0.5};
constexpr PadPoint top{0.5, 0.9};
constexpr PadPoint corner{0.05, 0.95};
constexpr PadPoint bottom{0.5, 0.1};

INSTANTIATE_TEST_SUITE_P(On, WholeRoad, managers, nameOf);

TEST_P(WholeRoad, TapsMoveCloseAndHide) {
    auto click = bindingAt(u"click"_s, bottom.x, bottom.y, TapAction::switchDesktopRight);
    click.requireClick = true;
    start({bindingAt(u"right"_s, right.x, right.y, TapAction::switchDesktopRight),
           bindingAt(u"left"_s, left.x, left.y, TapAction::switchDesktopLeft),
           bindingAt(u"close"_s, top.x, top.y, TapAction::closeWindow),
           bindingAt(u"hide"_s, corner.x, corner.y, TapAction::hideAll), click});
    const auto editor = desktop.openWindow(u"mousepad"_s);
    const auto terminal = openTerminal(u"work"_s);
    ASSERT_TRUE(becomesActive(terminal));

    tap(right);
    EXPECT_TRUE(says(u"matched 'right' → Switch Desktop Right → Switching right"_s));
    ASSERT_TRUE(workspaceBecomes(1));
    pad.play(PadScript().click(bottom, 0.35).events());
    EXPECT_TRUE(says(u"matched 'click' → Switch Desktop Right → Switching right"_s));
    ASSERT_TRUE(workspaceBecomes(2));
    tap(bottom, 0.55); // a click counts for half a second
    EXPECT_TRUE(says(u"require-click 'click': no click within 0.50s"_s));
    tap(left);
    EXPECT_TRUE(says(u"matched 'left' → Switch Desktop Left → Switching left"_s));
    ASSERT_TRUE(workspaceBecomes(1));
    ASSERT_TRUE(session->windows().activate(terminal));
    ASSERT_TRUE(becomesActive(terminal));

    tap(top);
    EXPECT_TRUE(says(u"matched 'close' → Close Window → Closing window"_s));
    ASSERT_TRUE(disappears(terminal));
    ASSERT_TRUE(desktop.state()->window(editor));
    tap(corner);
    EXPECT_TRUE(says(u"matched 'hide' → Hide Everything → Hid 1 app"_s));
    EXPECT_TRUE(becomes(editor, &DesktopWindow::hidden, true));
    EXPECT_TRUE(program->stop());
}

TEST_P(WholeRoad, EndsWithOneLineWhenTheServerGoes) {
    start({});
    ASSERT_EQ(::kill(static_cast<pid_t>(desktop.serverPid()), SIGKILL), 0);
    EXPECT_TRUE(says(u"the X server went away"_s));
    EXPECT_EQ(program->waitForEnd(), 1);
}

} // namespace
} // namespace brimlow::desktop
