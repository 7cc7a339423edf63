#include "platform/AtomicFile.h"
#include "platform/JsonText.h"
#include "tests/profiles/Json.h"
#include "tests/support/TestPlatform.h"

#include <QDir>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
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
    QStringList files() const {
        return QDir(folder.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
    QStringList errors() { return log.take(Stream::error); }

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
    EXPECT_EQ(files(), QStringList{u"preferences.json"_s});
    EXPECT_TRUE(errors().isEmpty());
}

TEST_F(Preferences, DataIsStrictBase64AloneInItsObject) {
    const auto read = [&](const char* value) {
        write(path, QJsonDocument(QJsonObject{{u"k"_s, test::quoted(value)}}).toJson());
        return NSUserDefaults(path, log).dataForKey(u"k"_s);
    };
    EXPECT_EQ(read("{'data':''}"), "");
    EXPECT_EQ(read("{'data':'YWI='}"), "ab");
    for (const char* bad :
         {"{'data':'YWI'}", "{'data':'YWJ='}", "{'data':'YW I='}", "{'data':'YWI=\\n'}",
          "{'data':'-_=='}", "{'data':'YWI=','more':1}", "{'data':7}", "'YWI='"})
        EXPECT_FALSE(read(bad)) << bad;
}

TEST_F(Preferences, ADamagedFileIsMovedAsideAndNeverOverwritten) {
    const std::set<QByteArray> damaged{"{\"a\":", "[1]", "", "{}x"};
    for (const QByteArray& bytes : damaged) {
        write(path, bytes);
        NSUserDefaults defaults(path, log);
        EXPECT_EQ(errors().size(), 1);
        EXPECT_FALSE(QFile::exists(path));
        defaults.setBool(true, u"k"_s);
    }
    std::set<QByteArray> found;
    for (const auto& name : QDir(folder.path()).entryList({u"preferences.json.damaged-*Z*"_s}))
        found.insert(read(inFolder(name)));
    EXPECT_EQ(found, damaged);
    EXPECT_EQ(NSUserDefaults(path, log).boolForKey(u"k"_s), true);
}

TEST_F(Preferences, WhatCannotBeReadIsLeftAloneForTheSession) {
    QDir(folder.path()).mkdir(u"preferences.json"_s);
    NSUserDefaults defaults(path, log);
    EXPECT_EQ(errors().size(), 1);
    defaults.setBool(true, u"k"_s);
    EXPECT_EQ(defaults.boolForKey(u"k"_s), true);
    EXPECT_EQ(files(), QStringList{u"preferences.json"_s});
    EXPECT_TRUE(QFileInfo(path).isDir() && errors().isEmpty());
}

TEST_F(Preferences, AFailingDiskIsReportedOnceAndTriedAgain) {
    const QString blocked = inFolder(u"file/sub/preferences.json"_s);
    NSUserDefaults defaults(blocked, log);
    for (const double value : {1, 2}) { // once it works again, the next failure is told
        write(inFolder(u"file"_s), "in the way");
        defaults.setBool(true, u"other"_s);
        defaults.setDouble(value, u"k"_s);
        EXPECT_EQ(errors(),
                  QStringList{u"NSUserDefaults: cannot write %1: Not a directory"_s.arg(blocked)});
        EXPECT_EQ(read(inFolder(u"file"_s)), "in the way");
        QFile::remove(inFolder(u"file"_s));
        defaults.setBool(false, u"other"_s);
        EXPECT_EQ(NSUserDefaults(blocked, log).doubleForKey(u"k"_s), value);
        EXPECT_TRUE(errors().isEmpty());
        QDir(inFolder(u"file"_s)).removeRecursively();
    }
}

TEST_F(Preferences, AFileThatFillsTheDiskLeavesTheOldOneWhole) {
    ASSERT_TRUE(replaceFile(path, "old").done);
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit small{1000, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    const auto [done, complaint] = replaceFile(path, QByteArray(5000, 'x'));
    setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_FALSE(done);
    EXPECT_EQ(complaint, u"File too large"_s);
    EXPECT_EQ(read(path), "old");
    EXPECT_EQ(files(), QStringList{u"preferences.json"_s});
}

TEST_F(Preferences, ASymbolicLinkStaysAndItsTargetIsReplaced) {
    QDir(folder.path()).mkdir(u"elsewhere"_s);
    const QString target = inFolder(u"elsewhere/real.json"_s);
    ASSERT_TRUE(QFile::link(u"elsewhere/real.json"_s, path));
    NSUserDefaults defaults(path, log); // dangling: empty
    defaults.setBool(true, u"k"_s);
    EXPECT_TRUE(QFileInfo(path).isSymbolicLink());
    EXPECT_EQ(read(path), read(target));
    write(target, "damaged");
    const NSUserDefaults next(path, log);
    EXPECT_TRUE(QFileInfo(path).isSymbolicLink());
    EXPECT_EQ(QDir(inFolder(u"elsewhere"_s)).entryList({u"real.json.damaged-*"_s}).size(), 1);
}

} // namespace brimlow::platform
