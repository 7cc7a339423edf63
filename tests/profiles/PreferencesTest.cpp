#include "platform/AtomicFile.h"
#include "tests/profiles/Json.h"
#include "tests/support/TestPlatform.h"

#include <QDir>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>

namespace brimlow::platform {

using namespace Qt::StringLiterals;

namespace {

class Preferences : public testing::Test {
protected:
    QString inFolder(const QString& name) const { return folder.filePath(name); }
    static void write(const QString& path, const QByteArray& bytes) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
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
    const QByteArray unknown =
        R"({"a":{"b":[null,9007199254740993,0.1,"\u0000ü"]},"data":{"data":"x"},"n":-1e-300})";
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
    EXPECT_FALSE(defaults.boolForKey(u"gone"_s));
    EXPECT_FALSE(defaults.boolForKey(u"double"_s) || defaults.boolForKey(u"string"_s));
    EXPECT_FALSE(defaults.doubleForKey(u"bool"_s) || defaults.doubleForKey(u"string"_s));
    EXPECT_FALSE(defaults.stringForKey(u"array"_s) || defaults.arrayForKey(u"string"_s));

    auto written = QJsonDocument::fromJson(read(path)).object();
    for (const auto& key : {u"bool"_s, u"double"_s, u"string"_s, u"binary"_s, u"array"_s})
        written.remove(key);
    EXPECT_EQ(QJsonDocument(written), QJsonDocument::fromJson(unknown));
    struct stat status {};
    ASSERT_EQ(::stat(QFile::encodeName(path).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600U);
    EXPECT_EQ(files(), QStringList{u"preferences.json"_s});
    EXPECT_TRUE(errors().isEmpty());
}

TEST_F(Preferences, DataIsStrictBase64AloneInItsObject) {
    struct Row {
        const char* value;
        bool isData;
    };
    const Row rows[] = {{"{'data':''}", true},       {"{'data':'YWI='}", true},
                        {"{'data':'YWI'}", false},   {"{'data':'YWJ='}", false},
                        {"{'data':'YW I='}", false}, {"{'data':'YWI=\\n'}", false},
                        {"{'data':'-_=='}", false},  {"{'data':'YWI=','more':1}", false},
                        {"{'data':7}", false},       {"'YWI='", false}};
    for (const Row& row : rows) {
        write(path, QJsonDocument(QJsonObject{{u"k"_s, test::quoted(row.value)}}).toJson());
        EXPECT_EQ(NSUserDefaults(path, log).dataForKey(u"k"_s).has_value(), row.isData)
            << row.value;
    }
}

TEST_F(Preferences, ADamagedFileIsMovedAsideAndNeverOverwritten) {
    const QList<QByteArray> damaged{"{\"a\":", "[1]", "", "{}x"};
    for (const QByteArray& bytes : damaged) {
        write(path, bytes);
        NSUserDefaults defaults(path, log);
        EXPECT_EQ(errors().size(), 1);
        EXPECT_FALSE(QFile::exists(path));
        defaults.setBool(true, u"k"_s);
        EXPECT_EQ(NSUserDefaults(path, log).boolForKey(u"k"_s), true);
    }
    const auto kept = QDir(folder.path()).entryList({u"preferences.json.damaged-*Z*"_s});
    QList<QByteArray> found;
    for (const QString& name : kept)
        found.append(read(inFolder(name)));
    std::ranges::sort(found);
    EXPECT_EQ(found, (QList<QByteArray>{"", "[1]", "{\"a\":", "{}x"}));
    EXPECT_TRUE(errors().isEmpty());
}

TEST_F(Preferences, WhatCannotBeReadIsLeftAloneForTheSession) {
    QDir(folder.path()).mkdir(u"preferences.json"_s);
    NSUserDefaults defaults(path, log);
    EXPECT_EQ(errors().size(), 1);
    defaults.setBool(true, u"k"_s);
    EXPECT_EQ(defaults.boolForKey(u"k"_s), true);
    EXPECT_EQ(files(), QStringList{u"preferences.json"_s});
    EXPECT_TRUE(QFileInfo(path).isDir());
    EXPECT_TRUE(errors().isEmpty());
}

TEST_F(Preferences, AFailingDiskIsReportedOnceAndTriedAgain) {
    const QString blocked = inFolder(u"file/sub/preferences.json"_s);
    write(inFolder(u"file"_s), "in the way");
    NSUserDefaults defaults(blocked, log);
    const auto expectOneLineFromTwoWrites = [&] {
        defaults.setDouble(1, u"k"_s);
        defaults.setDouble(2, u"k"_s);
        EXPECT_EQ(defaults.doubleForKey(u"k"_s), 2);
        EXPECT_EQ(errors(),
                  QStringList{u"NSUserDefaults: cannot write %1: Not a directory"_s.arg(blocked)});
    };
    expectOneLineFromTwoWrites();
    QFile::remove(inFolder(u"file"_s));
    defaults.setDouble(3, u"other"_s);
    EXPECT_EQ(NSUserDefaults(blocked, log).doubleForKey(u"k"_s), 2);
    EXPECT_TRUE(errors().isEmpty());
    QDir(inFolder(u"file"_s)).removeRecursively();
    write(inFolder(u"file"_s), "in the way again");
    expectOneLineFromTwoWrites();
    EXPECT_EQ(read(inFolder(u"file"_s)), "in the way again");
}

TEST_F(Preferences, AFileThatFillsTheDiskLeavesTheOldOneWhole) {
    ASSERT_FALSE(replaceFile(path, "old"));
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit small{1000, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    const auto failure = replaceFile(path, QByteArray(5000, 'x'));
    setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_EQ(failure, u"File too large"_s);
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
    EXPECT_FALSE(QFile::exists(target));
    EXPECT_EQ(QDir(inFolder(u"elsewhere"_s)).entryList({u"real.json.damaged-*"_s}).size(), 1);
}

TEST_F(Preferences, ObserversHearOfAChangeBeforeItHappens) {
    NSUserDefaults defaults(path, log);
    std::optional<bool> seen = true;
    const auto observing = defaults.observeWillChange([&] { seen = defaults.boolForKey(u"k"_s); });
    defaults.setBool(true, u"k"_s);
    EXPECT_EQ(seen, std::nullopt);
    defaults.removeObjectForKey(u"k"_s);
    EXPECT_EQ(seen, true);
}

} // namespace brimlow::platform
