#include "ui/access/AccessWindow.h"

#include "tests/support/TestPlatform.h"
#include "tests/ui/pickers/Shown.h"
#include "ui/access/AccessSettings.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QTest>

#include <gtest/gtest.h>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;
using platform::SettingsPane;
using platform::TrackpadRemedy;

/// The window on a described world in which a trackpad cannot be read. Programs of the test's own
/// stand in for the one that asks for a password.
struct Access : testing::Test {
    TestPlatform world;
    platform::RuleInstaller installer{program(u"helper"_s, "true"),
                                      world.folder.filePath(u"pkexec"_s)};
    AccessSettings settings{installer,
                            platform::ConsentRecords(world.folder.filePath(u"consent.json"_s))};

    Access() {
        world.devices.plugIn({u"Pad & <b>"_s, u"/dev/input/event5"_s, u"Permission denied"_s,
                              TrackpadRemedy::installRule});
    }

    QString program(const QString& name, const QByteArray& text) const {
        QFile file(world.folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\n" + text + '\n');
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return file.fileName();
    }
    bool visible() { return settings.window() && settings.window()->isVisible(); }
    QPushButton* button(const QString& text) { return shownButton(*settings.window(), text); }
    bool shows(const QString& text) {
        return shownTexts(*settings.window()).join(u'\n').contains(text);
    }
};

TEST_F(Access, APromptThatWasClosedStaysAwayUntilSomethingElseIsMissing) {
    settings.prompt(SettingsPane::accessibility);
    ASSERT_TRUE(visible());
    EXPECT_TRUE(shows(u"Brimlow cannot read “Pad & <b>”"_s));
    settings.window()->close();
    settings.prompt(SettingsPane::accessibility);
    EXPECT_FALSE(visible());
    settings.prompt(SettingsPane::automation); // another question
    EXPECT_TRUE(visible());
    settings.window()->close();
    world.devices.plugIn(
        {u"Second"_s, u"/dev/input/event6"_s, u"Permission denied"_s, TrackpadRemedy::installRule});
    settings.prompt(SettingsPane::accessibility);
    EXPECT_TRUE(visible());
    EXPECT_TRUE(shows(u"Second"_s));
    settings.window()->close();
    settings.open(SettingsPane::accessibility);
    EXPECT_TRUE(visible()) << "asked for";
}

TEST_F(Access, OpeningAPaneAndClosingItDeclinesNothing) {
    settings.open(SettingsPane::screenRecording);
    settings.window()->close();
    settings.prompt(SettingsPane::accessibility);
    EXPECT_TRUE(visible());
}

TEST_F(Access, FollowsWhatIsGrantedMeanwhile) {
    settings.open(SettingsPane::accessibility);
    ASSERT_TRUE(button(u"Allow…"_s));
    world.devices.unplugAll();
    world.devices.plugIn({u"Pad"_s, u"/dev/input/event5"_s});
    ASSERT_TRUE(QTest::qWaitFor([&] { return !button(u"Allow…"_s); }));
    EXPECT_TRUE(shows(u"Readable"_s));
}

TEST_F(Access, AllowingAsksOnceAndTellsWhyItWasInVain) {
    program(u"pkexec"_s, "exit 126");
    settings.open(SettingsPane::accessibility);
    button(u"Allow…"_s)->click();
    ASSERT_TRUE(button(u"Waiting for the Password…"_s));
    EXPECT_FALSE(button(u"Waiting for the Password…"_s)->isEnabled());
    ASSERT_TRUE(QTest::qWaitFor([&] { return button(u"Allow…"_s) != nullptr; }));
    EXPECT_TRUE(shows(u"password"_s));
    world.devices.unplugAll();
    program(u"pkexec"_s, "exit 0");
    button(u"Allow…"_s)->click();
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return !button(u"Allow…"_s) && !button(u"Waiting for the Password…"_s); }));
    EXPECT_FALSE(shows(u"password"_s));
}

TEST_F(Access, TheCommandsCanBeCopiedByKeyboard) {
    settings.open(SettingsPane::accessibility);
    auto* copy = button(u"Copy Commands"_s);
    ASSERT_TRUE(copy);
    copy->setFocus();
    QTest::keyClick(copy, Qt::Key_Space);
    EXPECT_TRUE(QApplication::clipboard()->text().contains(u"udevadm trigger"_s));
    ASSERT_TRUE(QTest::qWaitForWindowActive(settings.window()));
    QTest::keyClick(settings.window(), Qt::Key_Escape);
    EXPECT_FALSE(visible());
}

TEST_F(Access, KeyboardShortcutsAreTheDesktopsOwnWhereItHasSome) {
    world.applications.install({.id = u"kcm_keys"_s, .plainName = u"Shortcuts"_s});
    qputenv("XDG_CURRENT_DESKTOP", "KDE");
    settings.open(SettingsPane::keyboardShortcuts);
    EXPECT_FALSE(visible());
    EXPECT_EQ(world.applications.takeLaunches(), QStringList(u"kcm_keys"_s));
    qputenv("XDG_CURRENT_DESKTOP", "Openbox");
    settings.open(SettingsPane::keyboardShortcuts);
    EXPECT_TRUE(visible());
}

} // namespace
} // namespace brimlow::test
