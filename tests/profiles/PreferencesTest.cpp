#include "platform/JsonText.h"
#include "platform/NSUserDefaults.h"
#include "tests/profiles/Json.h"
#include "tests/support/TestPlatform.h"

#include <QDir>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <set>

namespace brimlow::platform {

using namespace Qt::StringLiterals;

namespace {

class Preferences : public testing::Test {
protected:
    QString inFolder(const QString& name) const { return folder.filePath(name); }
    static void write(const QString& path, const QByteArray& bytes) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    static QByteArray read(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(absent)");
    }

    QTemporaryDir folder;
    test::CapturedLog log;
    QString path = inFolder(u"preferences.json"_s);
};

} // namespace

TEST_F(Preferences, ValuesSurviveARestartAndUnknownKeysStay) {
    const QByteArray unknown = "\xef\xbb\xbf" // the mark that some editors begin with
                               R"({"a":{"b":[null,9007199254740993,0.1,"\u0000ü"]},"n":-1e-300,)"
                               "\"data\":{\"data\":\"x\"},\"\xef\xbb\xbf"
                               "bool\":7}";
    write(path, unknown);
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

    auto written = parsedJson(read(path)).object();
    for (const auto& key : {u"bool"_s, u"double"_s, u"string"_s, u"binary"_s, u"array"_s})
        written.remove(key);
    EXPECT_EQ(QJsonDocument(written), parsedJson(unknown));
    struct stat status {};
    ASSERT_EQ(::stat(QFile::encodeName(path).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600U);
    EXPECT_TRUE(log.take().isEmpty());
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

TEST_F(Preferences, ADamagedFileIsMovedAsideAndNeverOverwritten) {
    const QString target = inFolder(u"target.json"_s);
    ASSERT_TRUE(QFile::link(u"target.json"_s, path));
    const std::set<QByteArray> damaged{"{\"a\":", "[1]", "", "{}x"};
    for (const QByteArray& bytes : damaged) {
        write(path, bytes);
        NSUserDefaults defaults(path, log);
        EXPECT_EQ(log.take(Stream::error).size(), 1);
        EXPECT_FALSE(QFile::exists(target));
        EXPECT_TRUE(QFileInfo(path).isSymbolicLink());
        defaults.setBool(true, u"k"_s);
    }
    std::set<QByteArray> found;
    for (const auto& name : QDir(folder.path()).entryList({u"target.json.damaged-*Z*"_s}))
        found.insert(read(inFolder(name)));
    EXPECT_EQ(found, damaged);
    EXPECT_EQ(NSUserDefaults(path, log).boolForKey(u"k"_s), true);
}

} // namespace brimlow::platform
