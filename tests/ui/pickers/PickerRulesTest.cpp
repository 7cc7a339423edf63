#include "tests/support/TestPlatform.h"
#include "ui/pickers/AppFilter.h"
#include "ui/pickers/StableTitle.h"
#include "ui/pickers/WindowChoice.h"

#include <QLocale>

#include <gtest/gtest.h>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;

QStringList identifiersOf(const std::vector<InstalledApp>& apps) {
    QStringList identifiers;
    for (const InstalledApp& app : apps)
        identifiers << app.id;
    return identifiers;
}

InstalledApp app(const QString& id, const QString& name) {
    return {id, name, {}, {}};
}

TEST(AppFilter, FindsNamesAndIdentifiersInAnyCase) {
    const std::vector<InstalledApp> apps{app(u"com.google.Chrome"_s, u"Google Chrome"_s),
                                         app(u"org.straße"_s, u"ΟΔΟΣ"_s),
                                         app(u"com.apple.Notes"_s, u"Cafe\u0301\n"_s)};
    const QString chrome = apps[0].id;
    const QString street = apps[1].id;
    const QString notes = apps[2].id;
    struct Row {
        QString query;
        QStringList found;
    };
    for (const Row& row :
         {Row{{}, {chrome, street, notes}}, Row{u"\t \u3000 "_s, {chrome, street, notes}},
          Row{u" chrome\t"_s, {chrome}}, Row{u"COM."_s, {chrome, notes}},
          Row{u"com.apple"_s, {notes}}, Row{u"οδος"_s, {street}}, Row{u"STRASSE"_s, {street}},
          Row{u"CAFÉ"_s, {notes}}, Row{u"\n"_s, {notes}}, Row{u"g.*e"_s, {}}, Row{u"ee"_s, {}}})
        EXPECT_EQ(identifiersOf(filteredApps(apps, row.query)), row.found)
            << row.query.toStdString();
}

TEST(AppFilter, KnowsTheCasesOfTheUsersLanguage) {
    const std::vector<InstalledApp> apps{app(u"1"_s, u"KISA"_s)};
    QLocale::setDefault(QLocale(QLocale::Turkish));
    EXPECT_EQ(filteredApps(apps, u"kısa"_s).size(), 1U);
    EXPECT_EQ(filteredApps(apps, u"kisa"_s).size(), 0U);
    QLocale::setDefault(QLocale::c());
    EXPECT_EQ(filteredApps(apps, u"kisa"_s).size(), 1U);
}

TEST(StableTitle, IsTheBrowsersOrTheApplications) {
    const QString sixty = u"\u0065\u0301"_s.repeated(60);
    struct Row {
        QString title;
        QString stable;
    };
    for (const Row& row : {
             Row{u"Inbox - Google Chrome - Work"_s, u"Work"_s},
             Row{u"Inbox - Google Chrome -  Work \n"_s, u"Work"_s},
             Row{u"Inbox - Google Chrome"_s, u"Google Chrome"_s},
             Row{u"Inbox - Google Chrome - "_s, u"Google Chrome"_s},
             Row{u"Inbox - Google Chrome (Incognito)"_s, u"Google Chrome"_s},
             Row{u"Docs - Google Chrome Canary - Personal"_s, u"Personal"_s},
             Row{u"Docs - Google Chrome Beta"_s, u"Google Chrome Beta"_s},
             Row{u"A - Brave Browser - B — C"_s, u"B — C"_s},
             Row{u"A - Microsoft Edge"_s, u"Microsoft Edge"_s},
             Row{u"A - Microsoft Edge - B - Google Chrome - C"_s, u"C"_s},
             Row{u"A - Google Chrome - B - Google Chrome - C"_s, u"B - Google Chrome - C"_s},
             Row{u"A - google chrome"_s, u"A - google chrome"_s},
             Row{u"MyApp — Main.txt"_s, u"MyApp"_s},
             Row{u"Budget 2024 — Numbers"_s, u"Numbers"_s},
             Row{u"One.txt — two words"_s, u"two words"_s},
             Row{u"One — Two"_s, u"Two"_s},
             Row{u" — \tOnly one — "_s, u" — \tOnly one — "_s},
             Row{u"Untitled – dash "_s, u"Untitled – dash "_s},
             Row{{}, {}},
             Row{sixty + u"—a.b"_s, sixty},
             Row{sixty + u"x—a.b"_s, u"a.b"_s},
         })
        EXPECT_EQ(extractStableTitle(row.title), row.stable) << row.title.toStdString();
}

TEST(WindowChoice, CountsAndHidesAndKnowsWhatHelps) {
    EXPECT_EQ(windowCount(1), u"1 window"_s);
    EXPECT_EQ(windowCount(11), u"11 windows"_s);
    const std::vector<PickableWindow> both{{7, u"a"_s}, {8, u"b"_s}};
    EXPECT_EQ(visibleWindows(both, 7, true), (std::vector<PickableWindow>{{8, u"b"_s}}));
    EXPECT_EQ(visibleWindows(both, 7, false), both);
    EXPECT_EQ(visibleWindows(both, {}, true), both);
    EXPECT_EQ(settingsLink(u"no button"_s), std::nullopt);
    for (const auto& message : {u"Screen Recording, Accessibility"_s, u"3 titled"_s}) {
        EXPECT_EQ(settingsLink(message)->text, u"Open Privacy & Security → Screen Recording"_s);
        EXPECT_EQ(settingsLink(message)->address, u"x-apple.systempreferences:com.apple.preference."
                                                  u"security?Privacy_ScreenCapture"_s);
    }
    EXPECT_EQ(settingsLink(u"Accessibility"_s)->text, u"Open Privacy & Security → Accessibility"_s);
    EXPECT_EQ(settingsLink(u"Accessibility"_s)->address,
              u"x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility"_s);
}

} // namespace
} // namespace brimlow::test
