#include "tests/support/TestPlatform.h"
#include "tests/ui/pickers/Shown.h"
#include "ui/access/AccessReport.h"
#include "ui/access/AccessSettings.h"
#include "ui/access/AccessWindow.h"

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

QStringList notWorking(const std::vector<AccessItem>& items) {
    QStringList names;
    for (const AccessItem& item : items)
        if (!item.works)
            names << item.name;
    return names;
}

const QStringList allButTheToggle{u"Switch Desktop Left"_s,   u"Switch Desktop Right"_s,
                                  u"Close Window"_s,          u"Open App"_s,
                                  u"Focus Specific Window"_s, u"Hide Everything"_s};

TEST(AccessReport, NamesEachTrackpadThatCannotBeReadAndWhatHelps) {
    struct Row {
        TrackpadRemedy remedy;
        bool ruleHelps;
        QString hint;
    };
    for (const Row& row : {Row{TrackpadRemedy::installRule, true, u"never keyboards"_s},
                           Row{TrackpadRemedy::applyRule, true, u"not applied here yet"_s},
                           Row{TrackpadRemedy::reconnect, false, u"Plug the trackpad"_s}}) {
        TestPlatform world;
        world.devices.plugIn({u"Good"_s, u"/dev/input/event4"_s});
        world.devices.plugIn({u"A"_s, u"/dev/input/event5"_s, u"Permission denied"_s, row.remedy});
        world.devices.plugIn({u"B"_s, u"/dev/input/event6"_s, u"Permission denied"_s, row.remedy});
        const auto report = accessReport();
        ASSERT_EQ(report.problems.size(), 1U);
        EXPECT_EQ(report.problems[0].heading, u"Brimlow cannot read “A” and “B”"_s);
        EXPECT_TRUE(report.problems[0].text.startsWith(
            u"Your system keeps /dev/input/event5 (Permission denied) and /dev/input/event6 "
            u"(Permission denied) from Brimlow. "_s));
        EXPECT_TRUE(report.problems[0].text.contains(row.hint));
        EXPECT_EQ(report.problems[0].ruleHelps, row.ruleHelps);
        EXPECT_EQ(notWorking(report.trackpads), (QStringList{u"A"_s, u"B"_s}));
        EXPECT_EQ(notWorking(report.actions), allButTheToggle);
        EXPECT_EQ(report.actions[0].detail, u"“A” cannot be read."_s);
    }
}

TEST(AccessReport, TellsWhatTheSessionKeepsFromUs) {
    TestPlatform world;
    world.devices.plugIn({u"Pad"_s, u"/dev/input/event5"_s});
    auto report = accessReport();
    EXPECT_EQ(report.session, u"simulated"_s);
    EXPECT_TRUE(report.problems.empty());
    EXPECT_EQ(notWorking(report.trackpads) + notWorking(report.permissions)
                  + notWorking(report.actions),
              QStringList());
    EXPECT_EQ(report.actions.size(), 7U);

    world.session.setReadsTitles(false);
    report = accessReport();
    EXPECT_EQ(notWorking(report.permissions), QStringList(u"Screen Recording"_s));
    EXPECT_EQ(notWorking(report.actions), QStringList(u"Focus Specific Window"_s));
    EXPECT_EQ(report.actions[4].detail, u"Titles are secret here."_s);
    ASSERT_EQ(report.problems.size(), 1U);
    EXPECT_EQ(report.problems[0].text, u"Titles are secret here. Ask it nicely."_s);

    world.session.setTrusted(false);
    report = accessReport();
    EXPECT_EQ(notWorking(report.actions), allButTheToggle);
    EXPECT_EQ(notWorking(report.permissions).size(), 3);
    ASSERT_EQ(report.problems.size(), 1U);
    EXPECT_EQ(report.problems[0].text, u"The simulated world does not trust us. Ask it nicely."_s);
}

/// The window on a described world in which a trackpad cannot be read. The user closes the question
/// for a password.
struct Access : testing::Test {
    TestPlatform world;
    platform::RuleInstaller installer{program(u"helper"_s, 0), program(u"pkexec"_s, 126)};
    AccessSettings settings{installer,
                            platform::ConsentRecords(world.folder.filePath(u"consent.json"_s))};

    Access() { plugIn(u"Pad & <b>"_s); }

    void plugIn(const QString& name) {
        world.devices.plugIn(
            {name, u"/dev/input/event5"_s, u"Permission denied"_s, TrackpadRemedy::installRule});
    }
    QString program(const QString& name, int status) const {
        QFile file(world.folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\nexit " + QByteArray::number(status) + '\n');
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
    settings.open(SettingsPane::screenRecording);
    settings.window()->close();
    settings.prompt(SettingsPane::accessibility);
    ASSERT_TRUE(visible()) << "what was opened is not declined by closing it";
    EXPECT_TRUE(shows(u"Brimlow cannot read “Pad & <b>”"_s));
    settings.window()->close();
    settings.prompt(SettingsPane::accessibility);
    EXPECT_FALSE(visible());
    settings.prompt(SettingsPane::automation); // another question
    EXPECT_TRUE(visible());
    settings.window()->close();
    plugIn(u"Second"_s);
    settings.prompt(SettingsPane::accessibility);
    EXPECT_TRUE(visible());
    EXPECT_TRUE(shows(u"Second"_s));
    settings.window()->close();
    settings.open(SettingsPane::accessibility);
    EXPECT_TRUE(visible()) << "asked for";
}

TEST_F(Access, TellsWhyAllowingWasInVainAndFollowsWhatIsGrantedMeanwhile) {
    settings.open(SettingsPane::accessibility);
    button(u"Copy Commands"_s)->click();
    EXPECT_TRUE(QApplication::clipboard()->text().contains(u"udevadm trigger"_s));
    button(u"Allow…"_s)->click();
    ASSERT_TRUE(button(u"Waiting for the Password…"_s));
    EXPECT_FALSE(button(u"Waiting for the Password…"_s)->isEnabled());
    ASSERT_TRUE(QTest::qWaitFor([&] { return button(u"Allow…"_s) != nullptr; }));
    EXPECT_TRUE(shows(u"password"_s));
    world.devices.unplugAll();
    world.devices.plugIn({u"Pad"_s, u"/dev/input/event5"_s});
    ASSERT_TRUE(QTest::qWaitFor([&] { return !button(u"Allow…"_s); }));
    EXPECT_TRUE(shows(u"Readable"_s));
}

TEST_F(Access, KeyboardShortcutsAreTheDesktopsOwnWhereItHasSome) {
    for (const auto& id : {u"gnome-keyboard-panel"_s, u"xfce-keyboard-settings"_s})
        world.applications.install({.id = id, .plainName = u"Keyboard"_s});
    const std::vector<std::pair<QByteArray, QStringList>> rows{
        {"XFCE", {u"xfce-keyboard-settings"_s}},
        {"ubuntu:gnome", {u"gnome-keyboard-panel"_s}},
        {"KDE", {}}};
    for (const auto& [desktops, launched] : rows) {
        qputenv("XDG_CURRENT_DESKTOP", desktops);
        settings.open(SettingsPane::keyboardShortcuts);
        EXPECT_EQ(world.applications.takeLaunches(), launched);
        EXPECT_EQ(visible(), launched.isEmpty());
    }
}

} // namespace
} // namespace brimlow::test
