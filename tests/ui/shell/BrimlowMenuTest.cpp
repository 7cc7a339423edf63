#include "ui/shell/BrimlowMenu.h"

#include "engine/AppSettings.h"
#include "profiles/TapPositionMappings.h"
#include "tests/support/TestPlatform.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;

TEST(BrimlowMenu, FollowsTheProfilesAndTheSwitch) {
    TestPlatform world;
    AppSettings settings;
    TapPositionMappings store{0, world.defaults};
    MenuActions actions{.showBrimlow = {}, .checkForUpdates = [] {}, .quit = {}};
    // "✓ Work ⌘2", line by line; a divider's is empty.
    const auto menu = [&] {
        QStringList lines;
        for (const MenuItem& item : brimlowMenu(settings, store, actions)) {
            lines << (item.isOn ? u"✓ "_s : QString()) + item.title;
            if (!item.keyEquivalent.isNull())
                lines.last() += u" ⌘"_s + item.keyEquivalent;
        }
        return lines;
    };
    const auto press = [&](const QString& title) {
        const auto items = brimlowMenu(settings, store, actions);
        std::ranges::find(items, title, &MenuItem::title)->action();
    };
    for (const auto& name : {u"Work"_s, u"Presenting"_s, u"Travel"_s})
        store.createProfile(name);
    press(u"Work"_s);
    EXPECT_EQ(menu(), QStringList({u"Show Brimlow ⌘O"_s,
                                   {},
                                   u"Profiles"_s,
                                   u"Default ⌘1"_s,
                                   u"✓ Work ⌘2"_s,
                                   u"Presenting ⌘3"_s,
                                   u"Travel"_s,
                                   {},
                                   u"✓ Tap Gestures"_s,
                                   u"Check for Updates…"_s,
                                   {},
                                   u"Quit Brimlow ⌘Q"_s}));
    press(u"Tap Gestures"_s);
    press(u"Travel"_s);
    actions.checkForUpdates = {};
    EXPECT_FALSE(settings.tapEnabled());
    EXPECT_EQ(
        menu().mid(5),
        QStringList(
            {u"Presenting ⌘3"_s, u"✓ Travel"_s, {}, u"Tap Gestures"_s, {}, u"Quit Brimlow ⌘Q"_s}));
}

} // namespace
} // namespace brimlow::test
