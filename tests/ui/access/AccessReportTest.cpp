#include "ui/access/AccessReport.h"

#include "tests/support/TestPlatform.h"
#include "ui/access/KeyboardSettings.h"

#include <gtest/gtest.h>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;
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

TEST(AccessReport, WhereEverythingWorksThereIsNothingToDo) {
    TestPlatform world;
    world.devices.plugIn({u"Pad"_s, u"/dev/input/event5"_s});
    const auto report = accessReport();
    EXPECT_TRUE(report.problems.empty());
    EXPECT_EQ(report.session, u"simulated"_s);
    EXPECT_EQ(notWorking(report.trackpads) + notWorking(report.permissions)
                  + notWorking(report.actions),
              QStringList());
    EXPECT_EQ(report.trackpads.size(), 1U);
    EXPECT_EQ(report.permissions.size(), 3U);
    EXPECT_EQ(report.actions.size(), 7U);
}

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
    world.session.setReadsTitles(false);
    auto report = accessReport();
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

TEST(KeyboardSettings, AreThoseOfTheDesktopWhereItHasSome) {
    platform::SimulatedApplications applications({});
    for (const auto& id : {u"gnome-keyboard-panel"_s, u"xfce-keyboard-settings"_s})
        applications.install({.id = id, .plainName = u"Keyboard"_s});
    const std::vector<std::pair<QString, QString>> rows{
        {u"XFCE"_s, u"xfce-keyboard-settings"_s},
        {u"ubuntu:gnome"_s, u"gnome-keyboard-panel"_s},
        {u"KDE"_s, {}},
        {{}, {}}};
    for (const auto& [desktops, identifier] : rows)
        EXPECT_EQ(keyboardSettingsOf(desktops, applications), identifier);
}

} // namespace
} // namespace brimlow::test
