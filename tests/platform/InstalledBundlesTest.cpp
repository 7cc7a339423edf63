#include "platform/NSBundle.h"
#include "platform/NSFileManager.h"
#include "platform/NSWorkspace.h"
#include "tests/support/TestPlatform.h"

#include <gtest/gtest.h>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;
using namespace platform;

TEST(InstalledBundles, AreAllThatTheFileManagerShows) {
    TestPlatform world;
    world.applications.install({.id = u"a"_s, .plainName = u"Mail"_s});
    world.applications.install({.id = u"b"_s, .plainName = u"Own"_s, .userOwned = true});
    world.applications.install({.id = u"c"_s, .plainName = u"Hidden"_s, .listed = false});
    const std::optional<QStringList> nothing = QStringList();
    struct Row {
        QString path;
        std::optional<QStringList> contents;
    };
    for (const Row& row :
         {Row{u"/Applications"_s, QStringList{u"Mail.app"_s}},
          Row{u"/System/Applications"_s, nothing},
          Row{u"/home/user/Applications"_s, QStringList{u"Own.app"_s}},
          Row{u"/Applications/Mail.app"_s, nothing}, Row{u"/Applications/Hidden.app"_s, nothing},
          Row{u"/Applications/Utilities"_s, {}}, Row{u"/"_s, {}}, Row{{}, {}},
          Row{u"/usr"_s, {}}}) {
        EXPECT_EQ(NSFileManager::contentsOfDirectory(row.path), row.contents);
        EXPECT_EQ(NSFileManager::fileExists(row.path), row.contents.has_value());
        bool isDirectory = !row.contents.has_value();
        EXPECT_EQ(NSFileManager::fileExists(row.path, isDirectory), row.contents.has_value());
        EXPECT_EQ(isDirectory, row.contents.has_value());
    }
    EXPECT_EQ(NSFileManager::homeDirectoryForCurrentUser(), u"/home/user"_s);
}

TEST(InstalledBundles, TellWhatTheirEntrySays) {
    TestPlatform world;
    world.applications.install({.id = u"org.example.mail"_s,
                                .name = u"Post"_s,
                                .plainName = u"Mail"_s,
                                .executable = u"mail"_s,
                                .icon = u"mail-icon"_s});
    const auto bundle = NSBundle::initWithURL(u"/Applications/Mail.app/"_s);
    ASSERT_TRUE(bundle);
    EXPECT_EQ(bundle->bundlePath(), u"/Applications/Mail.app"_s);
    EXPECT_EQ(bundle->infoDictionary(),
              (QJsonObject{{u"CFBundleIdentifier"_s, u"org.example.mail"_s},
                           {u"CFBundleDisplayName"_s, u"Post"_s},
                           {u"CFBundleName"_s, u"Mail"_s},
                           {u"CFBundleExecutable"_s, u"mail"_s},
                           {u"CFBundleIconFile"_s, u"mail-icon"_s}}));
    EXPECT_EQ(NSWorkspace::iconForFile(bundle->bundlePath(), 18),
              world.applications.image(u"mail-icon"_s, 18));

    world.applications.remove(u"org.example.mail"_s);
    world.applications.install({.id = u"bare"_s, .plainName = u"Bare"_s});
    EXPECT_FALSE(NSBundle::initWithURL(u"/Applications/Mail.app"_s));
    EXPECT_TRUE(NSBundle::initWithURL(u"/Applications/Bare.app"_s)
                    ->objectForInfoDictionaryKey(u"CFBundleExecutable"_s)
                    .isUndefined());
    EXPECT_FALSE(NSBundle::initWithURL(u"/Applications"_s));
}

} // namespace
} // namespace brimlow::test
