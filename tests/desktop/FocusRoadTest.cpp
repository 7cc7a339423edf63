#include "tests/desktop/WholeRoad.h"

using namespace Qt::StringLiterals;

namespace brimlow::desktop {
namespace {

using platform::PadPoint;

constexpr PadPoint middle{0.5, 0.5};
constexpr PadPoint upperRight{0.75, 0.75};
constexpr PadPoint upperLeft{0.25, 0.75};
constexpr PadPoint lowerLeft{0.25, 0.25};
constexpr PadPoint lowerRight{0.75, 0.25};
constexpr PadPoint top{0.5, 0.9};

class FocusRoad : public WholeRoad {
protected:
    void sendTo(int workspace, std::uint32_t number) {
        ASSERT_TRUE(desktop.run(u"wmctrl"_s, {u"-i"_s, u"-r"_s, QString::number(number), u"-t"_s,
                                              QString::number(workspace)}));
        ASSERT_TRUE(desktop.waitFor([&](const DesktopState& now) {
            const auto* window = now.window(number);
            return window && window->workspace == workspace;
        }));
    }

    /// Nothing that is done after the window was raised may take the front from it again.
    bool comesToStay(std::uint32_t number) {
        return becomesActive(number)
               && !desktop.waitFor(
                   [&](const DesktopState& now) { return now.activeWindow != number; }, 300);
    }

    static TapPositionMapping binding(PadPoint point, TapAction action, const QString& application,
                                      const QString& title = {}, std::uint32_t number = 0) {
        auto result = bindingAt(application, point.x, point.y, action);
        result.appName = application;
        if (!title.isEmpty())
            result.windowTitle = title;
        if (number != 0)
            result.targetWindowID = number;
        return result;
    }
};

INSTANTIATE_TEST_SUITE_P(On, FocusRoad, managers, nameOf);

// Three toolkits: the terminal is plain Xt, mousepad GTK, featherpad Qt.
TEST_P(FocusRoad, TapsOpenApplicationsAndBringWindowsForward) {
    const auto closed = openTerminal(u"closed before long"_s);
    const auto terminal = openTerminal(u"Inbox — Work"_s);
    const auto other = openTerminal(u"100 % \"quoted\" | \\ shell"_s);
    const auto editor = desktop.openWindow(u"mousepad"_s);
    const auto notes = desktop.openWindow(u"featherpad"_s, {u"--standalone"_s});
    ASSERT_TRUE(editor && notes) << desktop.error().toStdString();
    sendTo(1, terminal);
    sendTo(2, editor);
    sendTo(3, notes);
    ASSERT_TRUE(session->windows().hide(notes));
    ASSERT_TRUE(becomes(notes, &DesktopWindow::hidden, true));
    ASSERT_TRUE(session->windows().close(closed));
    ASSERT_TRUE(disappears(closed));

    const QString xterm = u"debian-xterm"_s;
    const QString mousepad = u"org.xfce.mousepad"_s;
    start({binding(middle, TapAction::focusWindow, xterm, u"shell"_s, terminal),
           binding(upperRight, TapAction::focusWindow, mousepad, u"untitled"_s, closed),
           binding(upperLeft, TapAction::focusWindow, u"featherpad"_s, u"TITLE"_s),
           binding(lowerLeft, TapAction::focusWindow, xterm, u"\"QUOTED\" | \\"_s),
           binding(lowerRight, TapAction::openApp, mousepad),
           binding(top, TapAction::openApp, u"galc"_s)});

    tap(middle);
    EXPECT_TRUE(says(u"matched 'debian-xterm' → Focus Specific Window → Activated XTerm"_s));
    EXPECT_TRUE(says(u"focus-id: focused id %1 via _AXUIElementGetWindow"_s.arg(terminal)));
    EXPECT_TRUE(comesToStay(terminal));
    EXPECT_TRUE(workspaceBecomes(1));

    tap(upperRight);
    EXPECT_TRUE(says(u"→ Activated Mousepad → focusing target (after Space switch)"_s));
    EXPECT_TRUE(says(u"focus-id: window id %1 not present"_s.arg(closed)));
    EXPECT_TRUE(says(u"focus: CG+AX: focused 'Untitled 1 - Mousepad' (pid"_s));
    EXPECT_TRUE(comesToStay(editor));
    EXPECT_TRUE(workspaceBecomes(2));

    tap(upperLeft);
    EXPECT_TRUE(says(u"→ Activated FeatherPad → focusing target (after Space switch)"_s));
    EXPECT_TRUE(says(u", substring)"_s));
    EXPECT_TRUE(comesToStay(notes));
    EXPECT_TRUE(workspaceBecomes(3));
    EXPECT_TRUE(becomes(notes, &DesktopWindow::hidden, false));

    tap(lowerLeft);
    EXPECT_TRUE(says(u"focus: CG+AX: focused '100 % \"quoted\" | \\ shell'"_s));
    EXPECT_TRUE(comesToStay(other));
    EXPECT_TRUE(workspaceBecomes(0));

    tap(lowerRight); // it runs: nothing new is started
    EXPECT_TRUE(says(u"→ Open App → Opening org.xfce.mousepad"_s));
    EXPECT_TRUE(comesToStay(editor));
    EXPECT_TRUE(workspaceBecomes(2));
    EXPECT_EQ(desktop.state()->windows.size(), 4U);

    tap(top);
    EXPECT_TRUE(says(u"→ Open App → Opening Galculator"_s));
    EXPECT_TRUE(desktop.waitFor(
        [](const DesktopState& now) {
            const auto* active = now.window(now.activeWindow);
            return active && active->className == "galculator.Galculator"_L1
                   && active->workspace == now.currentWorkspace;
        },
        15000));
    EXPECT_TRUE(program->stop());
}

} // namespace
} // namespace brimlow::desktop
