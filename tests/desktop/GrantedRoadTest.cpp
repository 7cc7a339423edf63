#include "tests/desktop/WholeRoad.h"

using namespace Qt::StringLiterals;

namespace brimlow::desktop {
namespace {

constexpr platform::PadPoint right{0.95, 0.5};

/// Two trackpads that the program may not always read.
class GrantedRoad : public WholeRoad {
protected:
    void SetUp() override {
        WholeRoad::SetUp();
        dropRootsPowers();
    }

    platform::MockedPad second{input, platform::ordinaryTrackpad(), 6};
};

INSTANTIATE_TEST_SUITE_P(On, GrantedRoad, managers, nameOf);

TEST_P(GrantedRoad, AskingTakesNoFocusAndTapsArriveOnceItIsGranted) {
    second.setPermissions(0);
    const auto terminal = openTerminal(u"work"_s);
    ASSERT_TRUE(becomesActive(terminal));
    start({bindingAt(u"right"_s, right.x, right.y, TapAction::switchDesktopRight)});
    ASSERT_TRUE(comesTrue([&] { return hasWindow(); }));
    const auto asking = programWindow();
    tap(right);
    ASSERT_TRUE(says(u"Accessibility NOT granted — prompted user"_s));
    EXPECT_EQ(programWindow(), asking) << "one window however often";
    EXPECT_EQ(desktop.state()->activeWindow, terminal);
    if (qEnvironmentVariableIsSet("BRIMLOW_TEST_PICTURES"))
        desktop.screenshot(qEnvironmentVariable("BRIMLOW_TEST_PICTURES") + u"/asking.png"_s);
    ASSERT_TRUE(desktop.run(u"wmctrl"_s, {u"-i"_s, u"-c"_s, u"0x%1"_s.arg(asking, 0, 16)}));
    ASSERT_TRUE(disappears(asking));
    tap(right);
    ASSERT_TRUE(says(u"Accessibility NOT granted — prompted user"_s));
    program->readFor(200);
    EXPECT_EQ(programWindow(), 0U) << "the user has waved it away";

    second.setPermissions(0600);
    second.announceChange();
    ASSERT_TRUE(says(u"PermissionsManager: Accessibility changed to true"_s));
    second.play(platform::PadScript().tap(right, 0.35).events());
    EXPECT_TRUE(says(u"matched 'right' → Switch Desktop Right → Switching right"_s));
    EXPECT_TRUE(workspaceBecomes(1));
    EXPECT_TRUE(program->stop());
}

TEST_P(GrantedRoad, WhereNoTapCanAskTheStartDoes) {
    pad.setPermissions(0);
    second.setPermissions(0);
    const auto terminal = openTerminal(u"work"_s);
    ASSERT_TRUE(becomesActive(terminal));
    start({bindingAt(u"right"_s, right.x, right.y, TapAction::switchDesktopRight)});
    ASSERT_TRUE(comesTrue([&] { return hasWindow(); }));
    EXPECT_EQ(desktop.state()->activeWindow, terminal);
    pad.setPermissions(0600);
    second.setPermissions(0600);
    ASSERT_TRUE(says(u"PermissionsManager: Accessibility changed to true"_s));
    tap(right);
    EXPECT_TRUE(workspaceBecomes(1));
    EXPECT_TRUE(program->stop());
}

} // namespace
} // namespace brimlow::desktop
