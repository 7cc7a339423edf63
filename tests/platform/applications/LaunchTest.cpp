#include "platform/linux/applications/GioApplications.h"
#include "tests/platform/applications/EntryFolder.h"
#include "tests/platform/applications/Tokens.h"
#include "tests/support/TestPlatform.h"

#include <QDir>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;
using namespace platform;

/// What the launch witness told.
struct Witness {
    QList<QByteArray> items;

    QList<QByteArray> all(const QByteArray& key) const {
        QList<QByteArray> values;
        for (const auto& item : items) {
            if (item.startsWith(QByteArray(key + "=")))
                values << item.mid(key.size() + 1);
        }
        return values;
    }
    QByteArray one(const QByteArray& key) const { return all(key).value(0); }
};

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

    /// Waits until a launched witness has told all.
    Witness told() const {
        QByteArray text;
        pollfd wanted{open(pipe.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC), POLLIN, 0};
        while (poll(&wanted, 1, 10'000) == 1) {
            char buffer[65536];
            const auto count = read(wanted.fd, buffer, sizeof buffer);
            if (count <= 0)
                break;
            text.append(buffer, count);
        }
        close(wanted.fd);
        return {text.split('\0')};
    }

    TestPlatform world;
    Tokens tokens;
    GioApplications applications{{{world.folder.path(), false}}, std::chrono::milliseconds(0)};
    QByteArray pipe = world.folder.filePath(u"witness"_s).toUtf8();
};

TEST_F(Launch, GivesHostileLinesToTheProgramAsTheyAre) {
    const QByteArray canary = world.folder.filePath(u"canary"_s).toUtf8();
    const QByteArray longText(100'000, 'x');
    const struct {
        QByteArray line;
        QByteArray arguments; // a line for each
    } rows[] = {
        {"; touch " + canary, ";\ntouch\n" + canary},
        {"&& touch " + canary + " | sh > " + canary,
         "&&\ntouch\n" + canary + "\n|\nsh\n>\n" + canary},
        {"$(touch " + canary + ") $HOME ~ *", "$(touch\n" + canary + ")\n$HOME\n~\n*"},
        {"`touch " + canary + "`", "`touch\n" + canary + "`"},
        {"\"\\\\$(touch " + canary + ")\" 'a b'", "$(touch " + canary + ")\na b"},
        {"%f %F %u %U %d %n %m rest", "rest"},
        {"a %% %z %", "a\n%\n%"},
        {"--icon %i %c", "--icon\nx"},
        {longText, longText},
    };
    for (const auto& row : rows) {
        ASSERT_TRUE(launchWitness(row.line)) << row.line.left(80).toStdString();
        EXPECT_EQ(told().all("argument").join('\n').toStdString(), row.arguments.toStdString());
    }
    for (const QByteArray& line : {QByteArray("\"unbalanced"), QByteArray("'")})
        EXPECT_FALSE(launchWitness(line)) << line.toStdString();
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
    EXPECT_EQ(witness.all("descriptor"), QList<QByteArray>(3, "/dev/null"));
    EXPECT_EQ(witness.one("SigBlk").toULongLong(nullptr, 16), 0U);
    EXPECT_EQ(witness.one("SigIgn").toULongLong(nullptr, 16) & (1ULL << (SIGPIPE - 1)), 0U);
    EXPECT_EQ(witness.one("session"), witness.one("process"));
    EXPECT_NE(witness.one("parent").toInt(), getpid());
    EXPECT_EQ(witness.one("folder"), world.folder.path().toUtf8());
    EXPECT_EQ(witness.one("$GIO_LAUNCHED_DESKTOP_FILE"),
              world.folder.filePath(u"applications/x.desktop"_s).toUtf8());
    EXPECT_EQ(witness.one("$GIO_LAUNCHED_DESKTOP_FILE_PID"), witness.one("process"));
    EXPECT_EQ(witness.all("$DESKTOP_STARTUP_ID"), QList<QByteArray>());
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1); // no child of ours, and no zombie
    EXPECT_EQ(tokens.began, QStringList());
    close(inheritable);
}

TEST_F(Launch, HandsTheTokenOverAndStartsInTheFolder) {
    ASSERT_TRUE(launchWitness({}, "StartupNotify=true\nPath=/usr/share\n"));
    const auto witness = told();
    EXPECT_EQ(witness.one("$DESKTOP_STARTUP_ID"), "token 1");
    EXPECT_EQ(witness.one("folder"), "/usr/share");
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
    writeFile(world.folder.filePath(u"applications/org.example.Y.desktop"_s),
              "[Desktop Entry]\nType=Application\nName=y\nDBusActivatable=true\n");
    ASSERT_TRUE(applications.launch(u"org.example.X"_s, tokens));
    EXPECT_EQ(told().one("argument"), "direct");
    ASSERT_TRUE(applications.catalogue()->find(u"org.example.Y"_s));
    EXPECT_FALSE(applications.launch(u"org.example.Y"_s, tokens));
}

} // namespace
} // namespace brimlow::test
