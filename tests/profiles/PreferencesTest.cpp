#include "platform/NSUserDefaults.h"
#include "tests/profiles/Json.h"
#include "tests/support/TestPlatform.h"

#include <QDir>

#include <gtest/gtest.h>

namespace brimlow::platform {

using namespace Qt::StringLiterals;

namespace {

void write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

struct Preferences : testing::Test {
    QTemporaryDir folder;
    test::CapturedLog log;
    QString path = folder.filePath(u"preferences.json"_s);
};

} // namespace

TEST_F(Preferences, ValuesSurviveARestart) {
    const QByteArray binary("\x00\xff\n", 3);
    {
        NSUserDefaults defaults(path, log);
        defaults.setBool(false, u"bool"_s);
        defaults.setDouble(14.5, u"double"_s);
        defaults.setString(u"ü"_s, u"string"_s);
        defaults.setData(binary, u"binary"_s);
        defaults.setArray({1.5, u"x"_s}, u"array"_s);
        defaults.setBool(true, u"gone"_s);
        defaults.removeObjectForKey(u"gone"_s);
    }
    const NSUserDefaults defaults(path, log);
    EXPECT_EQ(defaults.boolForKey(u"bool"_s), false);
    EXPECT_EQ(defaults.doubleForKey(u"double"_s), 14.5);
    EXPECT_EQ(defaults.stringForKey(u"string"_s), u"ü"_s);
    EXPECT_EQ(defaults.dataForKey(u"binary"_s), binary);
    EXPECT_EQ(defaults.arrayForKey(u"array"_s), (QJsonArray{1.5, u"x"_s}));
    EXPECT_FALSE(defaults.boolForKey(u"gone"_s) || defaults.boolForKey(u"double"_s));
    EXPECT_FALSE(defaults.doubleForKey(u"bool"_s) || defaults.stringForKey(u"array"_s));
    EXPECT_EQ(QFile::permissions(path) & (QFile::ReadGroup | QFile::ReadOther), 0);
}

TEST_F(Preferences, DataIsStrictBase64AloneInItsObject) {
    const auto read = [&](const char* value) {
        write(path, QJsonDocument(QJsonObject{{u"k"_s, test::quoted(value)}}).toJson());
        return NSUserDefaults(path, log).dataForKey(u"k"_s);
    };
    EXPECT_EQ(read("{'data':''}"), "");
    EXPECT_EQ(read("{'data':'YWI='}"), "ab");
    for (const char* bad : {"{'data':'YWI'}", "{'data':'YWJ='}", "{'data':'YW I='}",
                            "{'data':'YWI=','more':1}", "{'data':7}", "'YWI='"})
        EXPECT_FALSE(read(bad)) << bad;
}

TEST_F(Preferences, DamagedFilesAreMovedAsideOneByOne) {
    ASSERT_TRUE(QFile::link(u"target.json"_s, path));
    for (const char* damaged : {"{\"a\":", "[1]", ""}) {
        write(path, damaged);
        NSUserDefaults defaults(path, log);
        EXPECT_TRUE(QFileInfo(path).isSymbolicLink());
        const QString line = log.take(Stream::error).value(0);
        QFile kept(line.section(u"moved to "_s, 1));
        EXPECT_TRUE(kept.fileName().contains(u"target.json.damaged-"_s));
        EXPECT_TRUE(kept.open(QIODevice::ReadOnly));
        EXPECT_EQ(kept.readAll(), damaged);
    }
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::System).size(), 4);
}

} // namespace brimlow::platform
