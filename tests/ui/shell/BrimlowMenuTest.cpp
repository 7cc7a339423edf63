#include "ui/shell/BrimlowMenu.h"

#include "engine/AppSettings.h"
#include "profiles/TapPositionMappings.h"
#include "tests/support/TestPlatform.h"
#include "ui/shell/TrayIcon.h"

#include <gtest/gtest.h>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;

struct Menu : testing::Test {
    TestPlatform world;
    AppSettings settings;
    TapPositionMappings store{0, world.defaults};
    QStringList done;

    std::vector<MenuItem> items(bool canUpdate = false) {
        MenuActions actions{.showBrimlow = [this] { done << u"show"_s; },
                            .checkForUpdates = {},
                            .quit = [this] { done << u"quit"_s; }};
        if (canUpdate)
            actions.checkForUpdates = [this] { done << u"update"_s; };
        return brimlowMenu(settings, store, actions);
    }
    /// "✓ Work ⌘2", line by line.
    static QStringList read(const std::vector<MenuItem>& items) {
        QStringList lines;
        for (const MenuItem& item : items) {
            QString line = item.isOn ? u"✓ "_s + item.title : item.title;
            if (item.kind == MenuItem::Kind::divider)
                line = u"-"_s;
            if (item.kind == MenuItem::Kind::header)
                line = u'[' + item.title + u']';
            if (!item.keyEquivalent.isNull())
                line += u" ⌘"_s + item.keyEquivalent;
            lines << line;
        }
        return lines;
    }
    void press(const QString& title) {
        for (const MenuItem& item : items(true))
            if (item.title == title)
                item.action();
    }
};

TEST_F(Menu, FollowsTheProfilesAndTheSwitch) {
    for (const auto& name : {u"Work"_s, u"Presenting"_s, u"Travel"_s})
        store.createProfile(name);
    press(u"Work"_s);
    EXPECT_EQ(read(items()),
              QStringList({u"Show Brimlow ⌘O"_s, u"-"_s, u"[Profiles]"_s, u"Default ⌘1"_s,
                           u"✓ Work ⌘2"_s, u"Presenting ⌘3"_s, u"Travel"_s, u"-"_s,
                           u"✓ Tap Gestures"_s, u"-"_s, u"Quit Brimlow ⌘Q"_s}));
    press(u"Tap Gestures"_s);
    press(u"Travel"_s);
    EXPECT_FALSE(settings.tapEnabled());
    EXPECT_EQ(read(items(true)).mid(5),
              QStringList({u"Presenting ⌘3"_s, u"✓ Travel"_s, u"-"_s, u"Tap Gestures"_s,
                           u"Check for Updates…"_s, u"-"_s, u"Quit Brimlow ⌘Q"_s}));
    for (const auto& title : {u"Show Brimlow"_s, u"Check for Updates…"_s, u"Quit Brimlow"_s})
        press(title);
    EXPECT_EQ(done, QStringList({u"show"_s, u"update"_s, u"quit"_s}));
}

} // namespace
} // namespace brimlow::test
