#include "platform/ApplicationCatalogue.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

namespace brimlow::platform {
namespace {

using namespace Qt::StringLiterals;

const QString users = u"/home/user/Applications"_s;

DesktopEntry entry(const QString& id, const QString& name) {
    return {.id = id, .plainName = name};
}

DesktopEntry userEntry(const QString& id, const QString& name) {
    return {.id = id, .plainName = name, .userOwned = true};
}

DesktopEntry hidden(DesktopEntry made) {
    made.listed = false;
    return made;
}

TEST(ApplicationBundles, ShowEachApplicationOnceInItsFolder) {
    const ApplicationCatalogue catalogue(
        {userEntry(u"mail"_s, u"My Mail"_s), userEntry(u"notes"_s, u"Заметки 日本"_s),
         hidden(userEntry(u"chess"_s, u"Chess"_s)), entry(u"mail"_s, u"Mail"_s),
         entry(u"mail"_s, u"Mail"_s), entry(u"io"_s, u"I/O"_s), entry(u"chess"_s, u"Chess"_s),
         entry(u"z-edit"_s, u"Edit"_s), entry(u"b-edit"_s, u"Edit"_s),
         hidden(entry(u"a-edit"_s, u"Edit"_s))},
        u"/home/user"_s);
    const auto& bundles = catalogue.bundles();
    EXPECT_EQ(bundles.contents(u"/Applications"_s),
              QStringList({u"Edit.app"_s, u"Edit (z-edit).app"_s, u"I:O.app"_s, u"Mail.app"_s}));
    EXPECT_EQ(bundles.contents(users), QStringList({u"My Mail.app"_s, u"Заметки 日本.app"_s}));
    EXPECT_EQ(bundles.pathOf(u"b-edit"_s), u"/Applications/Edit.app"_s);
    EXPECT_EQ(bundles.pathOf(u"mail"_s), users + u"/My Mail.app"_s);
    EXPECT_EQ(bundles.pathOf(u"nobody"_s), QString());
    // Hidden ones are found all the same, and the user's own stands for the system's.
    EXPECT_EQ(bundles.entryAt(bundles.pathOf(u"a-edit"_s))->id, u"a-edit"_s);
    EXPECT_FALSE(bundles.entryAt(u"/Applications/Chess.app"_s)->listed);
    EXPECT_TRUE(bundles.entryAt(u"/Applications/Mail.app"_s)->userOwned);
    EXPECT_EQ(bundles.entryAt(u"/Applications/My Mail.app"_s), nullptr);
}

} // namespace
} // namespace brimlow::platform
