#include "ui/pickers/WindowScan.h"

#include "tests/support/TestPlatform.h"

#include <gtest/gtest.h>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;

TEST(WindowScan, ListsTheTitledWindowsOfTheApplicationAndItsHelpersFrontToBack) {
    TestPlatform world;
    for (const auto& id : {u"app"_s, u"other"_s})
        world.applications.install({.id = id, .plainName = id});
    const auto back = world.session.openWindow(u"app"_s, 10, u"Back"_s);
    const auto helper = world.session.openWindow(u"app.helper"_s, 11, u"Helper"_s);
    const auto dialog = world.session.openWindow(u"dialog"_s, 10, u"Dialog"_s);
    world.session.openWindow(u"app"_s, 10, {});
    world.session.openWindow(u"apple"_s, 12, u"Not ours"_s);
    world.session.openWindow(u"other"_s, 10, u"Same process"_s);
    const auto scan = scanWindows(u"app"_s);
    EXPECT_EQ(scan.refreshError, std::nullopt);
    EXPECT_EQ(scan.windows, (std::vector<PickableWindow>{
                                {dialog, u"Dialog"_s}, {helper, u"Helper"_s}, {back, u"Back"_s}}));
    EXPECT_EQ(world.settings.takeJournal(), QStringList()) << "titles can be read";
}

TEST(WindowScan, SaysWhyThereAreNone) {
    TestPlatform world;
    world.applications.install({.id = u"app"_s, .plainName = u"The App"_s});
    const auto error = [](const std::optional<QString>& bundleId) {
        const auto scan = scanWindows(bundleId);
        EXPECT_TRUE(scan.windows.empty());
        return scan.refreshError.value_or(QString());
    };
    EXPECT_EQ(error({}), u"Pick an app first."_s);
    EXPECT_EQ(error(u""_s), u"Pick an app first."_s);
    world.session.setReadsTitles(false);
    EXPECT_EQ(error(u"app"_s), u"App is not running. Launch it first, then click Refresh."_s);
    EXPECT_EQ(world.settings.takeJournal(), QStringList());

    const auto number = world.session.openWindow(u"app"_s, 10, u"Secret"_s);
    EXPECT_EQ(error(u"app"_s),
              u"Found 1 The App window(s) but can't read their titles. Screen Recording permission "
              u"needed.\n\n1) Click the button below\n2) Toggle Brimlow ON\n3) **QUIT BRIMLOW "
              u"COMPLETELY** (Cmd+Q from menu bar — not just close window)\n4) Relaunch Brimlow"_s);
    EXPECT_EQ(world.settings.takeJournal(), QStringList(u"prompt screen recording"_s));
    world.session.setReadsTitles(true);
    world.session.window(number).title.clear();
    EXPECT_EQ(error(u"app"_s),
              u"Found 1 The App window(s) but titles came back empty. Screen Recording IS granted "
              u"but didn't apply — try fully quitting Brimlow (Cmd+Q from the menu bar Quit) and "
              u"relaunching."_s);
    world.session.failWindowListAfter(1);
    EXPECT_EQ(whyNoneIsPickable(u"The App"_s, 0, false),
              u"The App is running but has 0 visible windows. Make sure a window is actually open "
              u"(not just the dock icon)."_s);
    EXPECT_EQ(error(u"app"_s), u"Couldn't enumerate windows."_s);
}

} // namespace
} // namespace brimlow::test
