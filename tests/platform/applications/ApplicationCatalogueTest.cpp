#include "platform/ApplicationCatalogue.h"

#include "tests/support/Printing.h"

#include <gtest/gtest.h>

namespace brimlow::platform {
namespace {

using namespace Qt::StringLiterals;

const QString home = u"/home/user"_s;
const QString users = u"/home/user/Applications"_s;
const QString systems = u"/Applications"_s;

DesktopEntry entry(const QString& id, const QString& name, const QString& file = {}) {
    DesktopEntry made;
    made.id = id;
    made.plainName = name;
    made.file = file;
    return made;
}

DesktopEntry userEntry(const QString& id, const QString& name, const QString& file = {}) {
    auto made = entry(id, name, file);
    made.userOwned = true;
    return made;
}

DesktopEntry hidden(DesktopEntry made) {
    made.listed = false;
    return made;
}

TEST(ApplicationBundles, ShowsEachApplicationOnceInItsFolder) {
    const ApplicationCatalogue catalogue(
        {userEntry(u"mail"_s, u"My Mail"_s), userEntry(u"notes"_s, u"Заметки 日本"_s),
         entry(u"mail"_s, u"Mail"_s), entry(u"mail"_s, u"Mail"_s), entry(u"io"_s, u"I/O"_s),
         entry(u"z-edit"_s, u"Edit"_s), entry(u"b-edit"_s, u"Edit"_s),
         hidden(entry(u"a-edit"_s, u"Edit"_s))},
        home);
    const auto& bundles = catalogue.bundles();
    EXPECT_EQ(bundles.contents(systems),
              QStringList({u"Edit.app"_s, u"Edit (z-edit).app"_s, u"I:O.app"_s, u"Mail.app"_s}));
    EXPECT_EQ(bundles.contents(users), QStringList({u"My Mail.app"_s, u"Заметки 日本.app"_s}));
    EXPECT_TRUE(bundles.isFolder(u"/System/Applications"_s));
    EXPECT_FALSE(bundles.isFolder(u"/Applications/Utilities"_s));

    EXPECT_EQ(bundles.pathOf(u"b-edit"_s), u"/Applications/Edit.app"_s);
    EXPECT_EQ(bundles.pathOf(u"mail"_s), users + u"/My Mail.app"_s);
    EXPECT_EQ(bundles.pathOf(u"nobody"_s), QString());
    // Hidden ones are found all the same, and the user's own stands for the system's.
    EXPECT_EQ(bundles.entryAt(bundles.pathOf(u"a-edit"_s))->id, u"a-edit"_s);
    EXPECT_TRUE(bundles.entryAt(u"/Applications/Mail.app"_s)->userOwned);
    EXPECT_EQ(bundles.entryAt(u"/Applications/My Mail.app"_s), nullptr);
}

TEST(ApplicationBundles, HidesWhatTheUserHasHidden) {
    const ApplicationCatalogue catalogue(
        {hidden(userEntry(u"mail"_s, u"Mail"_s)), entry(u"mail"_s, u"Mail"_s)}, home);
    EXPECT_EQ(catalogue.bundles().contents(systems), QStringList());
    EXPECT_EQ(catalogue.bundles().contents(users), QStringList());
    EXPECT_EQ(catalogue.bundles().pathOf(u"mail"_s), users + u"/Mail.app"_s);
    EXPECT_FALSE(catalogue.bundles().entryAt(u"/Applications/Mail.app"_s)->listed);
}

TEST(ApplicationCatalogue, FindsByEachKindOfEvidence) {
    auto terminal = entry(u"debian-xterm"_s, u"XTerm"_s, u"/s/debian-xterm.desktop"_s);
    terminal.startupWmClass = u"XTerm"_s;
    terminal.program = u"/usr/bin/xterm"_s;
    auto unlisted = hidden(entry(u"a-xterm"_s, u"Helper"_s));
    unlisted.startupWmClass = u"XTerm"_s;
    auto writer = entry(u"Office.Writer"_s, u"Writer"_s);
    auto table = entry(u"office.table"_s, u"Table"_s);
    auto draw = entry(u"office.draw"_s, u"Draw"_s);
    writer.program = table.program = draw.program = u"/opt/office"_s;
    const ApplicationCatalogue catalogue({userEntry(u"mail"_s, u"Mail"_s, u"/u/mail.desktop"_s),
                                          entry(u"mail"_s, u"Mail"_s, u"/s/mail.desktop"_s),
                                          unlisted, terminal, writer, table, draw},
                                         home);
    EXPECT_TRUE(catalogue.find(u"mail"_s)->userOwned);
    EXPECT_EQ(catalogue.findByFile(u"/s/mail.desktop"_s), catalogue.find(u"mail"_s));
    EXPECT_EQ(catalogue.find(u"office.writer"_s), nullptr);
    EXPECT_EQ(catalogue.findIgnoringCase(u"office.writer"_s)->id, u"Office.Writer"_s);
    EXPECT_EQ(catalogue.findByWmClass(u"XTerm"_s)->id, u"debian-xterm"_s);
    EXPECT_EQ(catalogue.findByWmClass(QString()), nullptr);
    EXPECT_EQ(catalogue.findByProgram(u"/usr/bin/xterm"_s)->id, u"debian-xterm"_s);
    EXPECT_EQ(catalogue.findByProgram(u"/opt/office"_s), nullptr);
    EXPECT_EQ(catalogue.findByProgram(QString()), nullptr);
}

} // namespace
} // namespace brimlow::platform
