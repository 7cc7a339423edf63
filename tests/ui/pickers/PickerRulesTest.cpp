#include "tests/support/TestPlatform.h"
#include "ui/pickers/AppFilter.h"
#include "ui/pickers/StableTitle.h"
#include "ui/pickers/WindowChoice.h"

#include <QLocale>

#include <gtest/gtest.h>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;

TEST(AppFilter, FindsNamesAndIdentifiersInAnyCase) {
    const QString chrome = u"com.google.Chrome"_s;
    const QString street = u"org.straße"_s;
    const QString notes = u"com.apple.Notes"_s;
    const std::vector<InstalledApp> apps{{chrome, u"Google Chrome"_s, {}, {}},
                                         {street, u"ΟΔΟΣ"_s, {}, {}},
                                         {notes, u"Cafe\u0301\n"_s, {}, {}}};
    struct Row {
        QString query;
        QStringList found;
    };
    for (const auto& [query, expected] :
         {Row{{}, {chrome, street, notes}}, Row{u"\t \u3000 "_s, {chrome, street, notes}},
          Row{u" chrome\t"_s, {chrome}}, Row{u"COM."_s, {chrome, notes}}, Row{u"οδος"_s, {street}},
          Row{u"STRASSE"_s, {street}}, Row{u"CAFÉ"_s, {notes}}, Row{u"\n"_s, {notes}},
          Row{u"g.*e"_s, {}}}) {
        QStringList found;
        for (const InstalledApp& app : filteredApps(apps, query))
            found << app.id;
        EXPECT_EQ(found, expected) << query.toStdString();
    }
}

TEST(AppFilter, KnowsTheCasesOfTheUsersLanguage) {
    const std::vector<InstalledApp> apps{{u"1"_s, u"KISA"_s, {}, {}}};
    QLocale::setDefault(QLocale(QLocale::Turkish));
    EXPECT_EQ(filteredApps(apps, u"kısa"_s).size(), 1U);
    EXPECT_EQ(filteredApps(apps, u"kisa"_s).size(), 0U);
    QLocale::setDefault(QLocale::c());
}

TEST(StableTitle, IsTheBrowsersOrTheApplications) {
    const QString sixty = u"\u0065\u0301"_s.repeated(60);
    struct Row {
        QString title;
        QString stable;
    };
    for (const Row& row : {
             Row{u"Inbox - Google Chrome -  Work \n"_s, u"Work"_s},
             Row{u"Inbox - Google Chrome (Incognito)"_s, u"Google Chrome"_s},
             Row{u"Inbox - Google Chrome - "_s, u"Google Chrome"_s},
             Row{u"Docs - Google Chrome Canary"_s, u"Google Chrome Canary"_s},
             Row{u"A - Brave Browser - B — C"_s, u"B — C"_s},
             Row{u"A - Google Chrome - B - Google Chrome - C"_s, u"B - Google Chrome - C"_s},
             Row{u"A - google chrome"_s, u"A - google chrome"_s},
             Row{u"MyApp — Main.txt"_s, u"MyApp"_s},
             Row{u"One.txt — two words"_s, u"two words"_s},
             Row{u"One — Two"_s, u"Two"_s},
             Row{u" — \tOnly one — "_s, u" — \tOnly one — "_s},
             Row{u"Untitled – dash "_s, u"Untitled – dash "_s},
             Row{sixty + u"—a.b"_s, sixty},
             Row{sixty + u"x—a.b"_s, u"a.b"_s},
         })
        EXPECT_EQ(extractStableTitle(row.title), row.stable) << row.title.toStdString();
}

TEST(WindowChoice, LinksToTheSettingsThatAnErrorNames) {
    const QString panes = u"x-apple.systempreferences:com.apple.preference.security?Privacy_"_s;
    struct Row {
        QString error;
        QString text;
        QString pane;
    };
    const QString recording = u"Open Privacy & Security → Screen Recording"_s;
    for (const auto& [error, text, pane] :
         {Row{u"Screen Recording, Accessibility"_s, recording, u"ScreenCapture"_s},
          Row{u"3 titled"_s, recording, u"ScreenCapture"_s},
          Row{u"Accessibility"_s, u"Open Privacy & Security → Accessibility"_s,
              u"Accessibility"_s}}) {
        EXPECT_EQ(settingsLink(error)->text, text);
        EXPECT_EQ(settingsLink(error)->address, panes + pane);
    }
}

} // namespace
} // namespace brimlow::test
