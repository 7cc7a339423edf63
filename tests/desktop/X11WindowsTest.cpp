#include "tests/desktop/X11Desktop.h"

using namespace Qt::StringLiterals;

namespace brimlow::desktop {
namespace {

INSTANTIATE_TEST_SUITE_P(On, X11Desktop, managers, nameOf);

TEST_P(X11Desktop, ListsWindowsOfAllWorkspacesAsTheyAreStacked) {
    EXPECT_EQ(session->windows().list()->size(), 0U);

    const auto russian = openTerminal(u"Приёмка 日本 — café"_s);
    const auto latin = openTerminal(u"100 % <b>é</b> \"q\""_s);
    const auto calculator = desktop.openWindow(u"galculator"_s);
    ASSERT_TRUE(
        desktop.run(u"wmctrl"_s, {u"-i"_s, u"-r"_s, QString::number(latin), u"-t"_s, u"2"_s}));
    ASSERT_TRUE(desktop.run(u"wmctrl"_s, {u"-i"_s, u"-a"_s, QString::number(russian)}));
    ASSERT_TRUE(becomesActive(russian));
    ASSERT_TRUE(
        desktop.waitFor([&](const auto& now) { return now.window(latin)->workspace == 2; }));

    const auto windows = session->windows().list();
    ASSERT_TRUE(windows);
    ASSERT_EQ(windows->size(), 3U);
    EXPECT_EQ(windows->back().number, russian);
    EXPECT_EQ(listed(russian)->title, u"Приёмка 日本 — café"_s);
    EXPECT_EQ(listed(latin)->title, u"100 % <b>é</b> \"q\""_s);
    EXPECT_EQ(listed(calculator)->title, u"galculator"_s);
    EXPECT_EQ(listed(russian)->applicationId, u"debian-xterm"_s);
    EXPECT_EQ(listed(russian)->workspace, 0);
    EXPECT_EQ(listed(latin)->workspace, 2);
    EXPECT_TRUE(listed(russian)->active);
    EXPECT_FALSE(listed(latin)->active || listed(calculator)->active);
    EXPECT_FALSE(listed(russian)->hidden);
    const auto state = desktop.state();
    for (const auto& witness : state->windows)
        EXPECT_EQ(listed(witness.number)->ownerPid, witness.pid);
}

TEST_P(X11Desktop, StepsWorkspacesAndStopsAtTheEnds) {
    auto& workspaces = session->workspaces();
    using platform::Direction;
    const struct {
        Direction direction;
        int expected;
    } steps[] = {{Direction::left, 0},  {Direction::right, 1}, {Direction::right, 2},
                 {Direction::right, 3}, {Direction::right, 3}, {Direction::left, 2}};
    for (const auto& step : steps) {
        EXPECT_TRUE(workspaces.step(step.direction));
        ASSERT_TRUE(workspaceBecomes(step.expected)) << step.expected;
    }
}

TEST_P(X11Desktop, HidesAndActivatesAcrossWorkspaces) {
    const auto here = openTerminal(u"here"_s);
    ASSERT_TRUE(session->workspaces().step(platform::Direction::right));
    ASSERT_TRUE(workspaceBecomes(1));
    const auto there = openTerminal(u"there"_s);
    ASSERT_TRUE(becomesActive(there));

    auto& windows = session->windows();
    EXPECT_TRUE(windows.hide(here)); // it is on another workspace
    EXPECT_TRUE(windows.hide(there));
    EXPECT_TRUE(becomes(here, &DesktopWindow::hidden, true));
    EXPECT_TRUE(becomes(there, &DesktopWindow::hidden, true));
    EXPECT_TRUE(listed(here)->hidden);

    EXPECT_TRUE(windows.unhide(there));
    EXPECT_TRUE(GetParam() == WindowManager::kwin // which waits for it to be activated
                || becomes(there, &DesktopWindow::hidden, false));
    EXPECT_TRUE(workspaceBecomes(1));

    EXPECT_TRUE(windows.activate(here));
    EXPECT_TRUE(becomesActive(here));
    EXPECT_TRUE(workspaceBecomes(0));
    EXPECT_TRUE(becomes(here, &DesktopWindow::hidden, false));
    EXPECT_EQ(listed(here)->workspace, 0);
    EXPECT_EQ(listed(there)->workspace, 1);
}

TEST_P(X11Desktop, ShowsWhatItAskedForBeforeTheManagerHasDoneIt) {
    const auto lower = openTerminal(u"lower"_s);
    const auto upper = openTerminal(u"upper"_s);
    ASSERT_TRUE(becomesActive(upper));
    auto& windows = session->windows();
    ASSERT_EQ(windows.list()->back().number, upper);
    EXPECT_LT(listed(lower)->age, listed(upper)->age);

    ASSERT_TRUE(windows.raise(lower));
    EXPECT_EQ(windows.list()->back().number, lower);
    EXPECT_TRUE(listed(upper)->active);
    ASSERT_TRUE(windows.activate(upper));
    EXPECT_EQ(windows.list()->back().number, upper);
    ASSERT_TRUE(windows.activate(lower));
    EXPECT_EQ(windows.list()->back().number, lower);
    EXPECT_TRUE(listed(lower)->active);
    EXPECT_FALSE(listed(upper)->active);
    EXPECT_LT(listed(lower)->age, listed(upper)->age);
    EXPECT_TRUE(becomesActive(lower)); // says the manager too
}

TEST_P(X11Desktop, UnhidingAWindowThatIsNotHiddenChangesNothing) {
    const auto elsewhere = openTerminal(u"elsewhere"_s);
    ASSERT_TRUE(session->workspaces().step(platform::Direction::right));
    ASSERT_TRUE(workspaceBecomes(1));
    const auto beside = openTerminal(u"beside"_s);
    const auto front = openTerminal(u"front"_s);
    const auto last = openTerminal(u"last"_s);
    ASSERT_TRUE(session->windows().activate(front));
    ASSERT_TRUE(becomesActive(front));

    EXPECT_TRUE(session->windows().unhide(elsewhere));
    EXPECT_TRUE(session->windows().unhide(beside));
    ASSERT_TRUE(session->windows().hide(last)); // done after all that was asked for before
    ASSERT_TRUE(becomes(last, &DesktopWindow::hidden, true));
    EXPECT_EQ(desktop.state()->activeWindow, front);
    EXPECT_EQ(desktop.state()->currentWorkspace, 1);
}

TEST_P(X11Desktop, RaisesAWindowOfAnotherWorkspaceWhereItIs) {
    const auto lower = openTerminal(u"lower"_s);
    const auto upper = openTerminal(u"upper"_s);
    ASSERT_TRUE(session->workspaces().step(platform::Direction::right));
    ASSERT_TRUE(workspaceBecomes(1));
    const auto here = openTerminal(u"here"_s);
    ASSERT_TRUE(becomesActive(here));

    ASSERT_TRUE(session->windows().raise(lower));
    // A listing of its own, that has asked for nothing.
    QString reason;
    const auto other = platform::X11Session::connect(desktop.displayName(), applications, reason);
    const auto isAbove = [&](const DesktopState&) {
        const auto windows = other->windows().list();
        const auto place = [&](auto number) {
            return std::ranges::find(*windows, number, &platform::Window::number);
        };
        return place(lower) > place(upper);
    };
    EXPECT_TRUE(desktop.waitFor(isAbove));
    EXPECT_EQ(desktop.state()->window(lower)->workspace, 0);
    EXPECT_EQ(desktop.state()->currentWorkspace, 1);
    EXPECT_EQ(desktop.state()->activeWindow, here);
}

TEST_P(X11Desktop, ClosesTheActiveWindowOnCommandW) {
    const auto first = openTerminal(u"first"_s);
    const auto second = openTerminal(u"second"_s);
    const auto third = openTerminal(u"third"_s);
    ASSERT_TRUE(session->windows().activate(second));
    ASSERT_TRUE(becomesActive(second));

    auto& input = session->input();
    EXPECT_FALSE(input.post({.keyCode = 12, .down = true, .flags = 0x100000}));
    EXPECT_FALSE(input.post({.keyCode = 13, .down = true, .flags = 0x120000}));
    EXPECT_TRUE(input.post({.keyCode = 13, .down = false, .flags = 0x100000}));
    EXPECT_EQ(desktop.state()->windows.size(), 3U);
    EXPECT_TRUE(input.post({.keyCode = 13, .down = true, .flags = 0x100000}));
    EXPECT_TRUE(disappears(second));

    EXPECT_TRUE(session->windows().close(first));
    EXPECT_TRUE(disappears(first));
    EXPECT_EQ(desktop.state()->windows.size(), 1U);
    EXPECT_TRUE(listed(third));
}

TEST_P(X11Desktop, TellsWhatItCanDo) {
    auto abilities = session->abilities();
    EXPECT_EQ(abilities.sessionName,
              u"X11 (%1)"_s.arg(QString::fromStdString(nameOf({GetParam(), 0}))));
    EXPECT_TRUE(abilities.controlsWindows && abilities.readsTitles && abilities.switchesWorkspaces);
    EXPECT_EQ(abilities.complaint() + abilities.remedy, QString());

    // It leaves its properties on the root window behind.
    desktop.stopWindowManager();
    abilities = session->abilities();
    EXPECT_FALSE(abilities.controlsWindows || abilities.switchesWorkspaces);
    EXPECT_EQ(abilities.sessionName, u"X11"_s);
    EXPECT_TRUE(abilities.complaint().startsWith(
        u"Windows and workspaces cannot be controlled: no window manager is running. "_s));
    EXPECT_FALSE(session->windows().list());
    EXPECT_EQ(session->workspaces().step(platform::Direction::right).reason,
              u"no window manager is running"_s);
}

} // namespace
} // namespace brimlow::desktop
