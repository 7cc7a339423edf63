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
    TestPlatform world;
    world.devices.plugIn({u"Good"_s, u"/dev/input/event4"_s});
    for (const auto& [name, remedy] : {std::pair{u"A"_s, TrackpadRemedy::installRule},
                                       {u"B"_s, TrackpadRemedy::installRule},
                                       {u"C"_s, TrackpadRemedy::applyRule},
                                       {u"D"_s, TrackpadRemedy::reconnect}})
        world.devices.plugIn({name, u"/dev/"_s + name, u"Permission denied"_s, remedy});
    const auto report = accessReport();
    const std::tuple<QString, QString, bool> rows[]{{u"“A” and “B”"_s, u"never keyboards"_s, true},
                                                    {u"“C”"_s, u"not applied here yet"_s, true},
                                                    {u"“D”"_s, u"Plug the trackpad"_s, false}};
    ASSERT_EQ(report.problems.size(), std::size(rows));
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        const auto& [names, hint, ruleHelps] = rows[i];
        EXPECT_EQ(report.problems[i].heading, u"Brimlow cannot read "_s + names);
        EXPECT_TRUE(report.problems[i].text.contains(hint));
        EXPECT_EQ(report.problems[i].ruleHelps, ruleHelps);
    }
    EXPECT_TRUE(report.problems[0].text.startsWith(
        u"Your system keeps /dev/A (Permission denied) and /dev/B (Permission denied) from "
        u"Brimlow. "_s));
    EXPECT_EQ(notWorking(report.trackpads), (QStringList{u"A"_s, u"B"_s, u"C"_s, u"D"_s}));
    EXPECT_EQ(notWorking(report.actions), allButTheToggle);
    EXPECT_EQ(report.actions[0].detail, u"“A” cannot be read."_s);
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
    settings.prompt(SettingsPane::accessibility);
    settings.open(SettingsPane::accessibility);
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
