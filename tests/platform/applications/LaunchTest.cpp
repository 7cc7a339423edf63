#include "platform/linux/applications/GioApplications.h"
#include "tests/platform/applications/EntryFolder.h"
#include "tests/platform/applications/Tokens.h"
#include "tests/support/TestPlatform.h"

#include <QFile>
#include <QHash>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;
using namespace platform;

class Launch : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(mkfifo(pipe.constData(), 0600), 0);
        qputenv("BRIMLOW_WITNESS", pipe);
        qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    }

    Outcome launch(const QByteArray& exec, const QByteArray& keys = {}) {
        const QString file = world.folder.filePath(u"applications/x.desktop"_s);
        writeFile(file, entryText("x", exec, keys));
        return applications.launch(u"x"_s, tokens);
    }
    Outcome launchWitness(const QByteArray& arguments, const QByteArray& keys = {}) {
        return launch(BRIMLOW_LAUNCH_WITNESS " " + arguments, keys);
    }

    /// Waits until a launched witness has told all; by key.
    QHash<QByteArray, QByteArray> told() const {
        QFile file(QString::fromUtf8(pipe));
        EXPECT_TRUE(file.open(QFile::ReadOnly));
        QHash<QByteArray, QByteArray> values;
        for (const auto& item : file.readAll().split('\0'))
            values[item.left(item.indexOf('='))] = item.mid(item.indexOf('=') + 1);
        return values;
    }

    TestPlatform world;
    Tokens tokens;
    GioApplications applications{{{world.folder.path(), false}}, std::chrono::milliseconds(0)};
    QByteArray pipe = world.folder.filePath(u"witness"_s).toUtf8();
};

TEST_F(Launch, GivesHostileLinesToTheProgramAsTheyAre) {
    const QByteArray canary = world.folder.filePath(u"canary"_s).toUtf8();
    ASSERT_TRUE(launchWitness("; touch " + canary + " && $(touch " + canary + ") `touch " + canary
                              + "` $HOME ~ * \"\\\\$(x)\" 'a b' %f %u %% --icon %i %c "
                              + QByteArray(100'000, 'x')));
    EXPECT_EQ(told()["arguments"],
              ";\ntouch\n" + canary + "\n&&\n$(touch\n" + canary + ")\n`touch\n" + canary
                  + "`\n$HOME\n~\n*\n$(x)\na b\n%\n--icon\nx\n" + QByteArray(100'000, 'x') + '\n');
    EXPECT_FALSE(launchWitness("\"unbalanced"));
    EXPECT_FALSE(QFile::exists(QString::fromUtf8(canary)));
}

TEST_F(Launch, GivesTheProgramAFreshStart) {
    std::signal(SIGPIPE, SIG_IGN);
    sigset_t blocked;
    sigfillset(&blocked);
    pthread_sigmask(SIG_SETMASK, &blocked, nullptr);
    qputenv("DESKTOP_STARTUP_ID", "ours");
    qputenv("GIO_LAUNCHED_DESKTOP_FILE", "/ours.desktop");
    qputenv("GIO_LAUNCHED_DESKTOP_FILE_PID", "1");
    const int inheritable = open("/dev/zero", O_RDONLY);
    qputenv("HOME", world.folder.path().toUtf8());

    ASSERT_TRUE(launchWitness("one"));
    const auto witness = told();
    EXPECT_EQ(witness["descriptors"], "/dev/null\n/dev/null\n/dev/null\n");
    EXPECT_EQ(witness["SigBlk"].toULongLong(nullptr, 16), 0U);
    EXPECT_EQ(witness["SigIgn"].toULongLong(nullptr, 16) & (1ULL << (SIGPIPE - 1)), 0U);
    EXPECT_EQ(witness["session"], witness["process"]);
    EXPECT_NE(witness["parent"].toInt(), getpid());
    EXPECT_EQ(witness["folder"], world.folder.path().toUtf8());
    EXPECT_EQ(witness["$GIO_LAUNCHED_DESKTOP_FILE"],
              world.folder.filePath(u"applications/x.desktop"_s).toUtf8());
    EXPECT_EQ(witness["$GIO_LAUNCHED_DESKTOP_FILE_PID"], witness["process"]);
    EXPECT_FALSE(witness.contains("$DESKTOP_STARTUP_ID"));
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1); // no child of ours, and no zombie
    EXPECT_EQ(tokens.began, QStringList());
    close(inheritable);
}

TEST_F(Launch, HandsTheTokenOverAndStartsInTheFolder) {
    ASSERT_TRUE(launchWitness({}, "StartupNotify=true\nPath=/usr/share\n"));
    const auto witness = told();
    EXPECT_EQ(witness["$DESKTOP_STARTUP_ID"], "token 1");
    EXPECT_EQ(witness["folder"], "/usr/share");
    EXPECT_EQ(tokens.began, QStringList{u"x"_s});
    EXPECT_EQ(tokens.abandoned, QStringList());
}

TEST_F(Launch, TakesTheTokenBackWhenItFails) {
    const auto outcome = launchWitness({}, "StartupNotify=true\nPath=/nonexistent/folder\n");
    EXPECT_FALSE(outcome);
    EXPECT_TRUE(outcome.reason.contains(u"/nonexistent/folder"_s)) << outcome.reason.toStdString();
    EXPECT_FALSE(outcome.reason.endsWith(u'.'));
    EXPECT_FALSE(launchWitness(QByteArray(200'000, 'x'), "StartupNotify=true\n"));
    EXPECT_EQ(tokens.abandoned, QStringList({u"token 1"_s, u"token 2"_s}));
    EXPECT_EQ(applications.launch(u"absent"_s, tokens).reason,
              u"no application has that identifier"_s);
    EXPECT_EQ(tokens.began.size(), 2);
}

TEST_F(Launch, StartsWhatTheBusWouldActivateWhereThereIsNoBus) {
    writeFile(world.folder.filePath(u"applications/org.example.X.desktop"_s),
              entryText("x", BRIMLOW_LAUNCH_WITNESS " direct", "DBusActivatable=true\n"));
    ASSERT_TRUE(applications.launch(u"org.example.X"_s, tokens));
    EXPECT_EQ(told()["arguments"], "direct\n");
}

} // namespace
} // namespace brimlow::test
