#include "platform/linux/applications/GioApplications.h"
#include "tests/platform/applications/EntryFolder.h"
#include "tests/support/TestPlatform.h"
#include "tools/desktop/PrivateBus.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
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

/// Gives numbered tokens and remembers those that came back.
struct Tokens final : Startup {
    QString begin(const DesktopEntry& application) override {
        began << application.id;
        return u"token %1"_s.arg(began.size());
    }
    void abandon(const QString& token) override { abandoned << token; }

    QStringList began;
    QStringList abandoned;
};

class Launch : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(mkfifo(pipe.constData(), 0600), 0);
        qputenv("BRIMLOW_WITNESS", pipe);
        qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    }

    /// Starts an application of this id that runs the witness.
    Outcome launch(const QByteArray& arguments, const QByteArray& keys = {},
                   const QString& id = u"x"_s) {
        writeFile(world.folder.filePath(u"applications/%1.desktop"_s.arg(id)),
                  entryText("x", BRIMLOW_LAUNCH_WITNESS " " + arguments, keys));
        return applications.launch(id, tokens);
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

    int argumentCount = 0;
    QCoreApplication application{argumentCount, nullptr};
    TestPlatform world;
    Tokens tokens;
    GioApplications applications{{{world.folder.path(), false}}, std::chrono::milliseconds(0)};
    QByteArray pipe = world.folder.filePath(u"witness"_s).toUtf8();
};

TEST_F(Launch, GivesHostileLinesToTheProgramAsTheyAre) {
    const QByteArray canary = world.folder.filePath(u"canary"_s).toUtf8();
    const QByteArray rest(100'000, 'x');
    ASSERT_TRUE(launch("; $(touch " + canary
                       + ") && `id` $HOME ~ * \"\\\\$(x)\" 'a b' %f %u %% %i %c " + rest));
    EXPECT_EQ(told()["arguments"], ";\n$(touch\n" + canary + ")\n&&\n`id`\n$HOME\n~\n*\n$(x)\na b\n"
                                       + "%\nx\n" + rest + '\n');
    EXPECT_FALSE(launch("\"unbalanced"));
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

    ASSERT_TRUE(launch("one"));
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

TEST_F(Launch, HandsTheTokenOverOrTakesItBack) {
    const QByteArray notify = "StartupNotify=true\nPath=";
    ASSERT_TRUE(launch({}, notify + "/usr/share\n"));
    const auto witness = told();
    EXPECT_EQ(witness["$DESKTOP_STARTUP_ID"], "token 1");
    EXPECT_EQ(witness["folder"], "/usr/share");
    EXPECT_EQ(tokens.abandoned, QStringList());

    const auto outcome = launch({}, notify + "/nonexistent/folder\n");
    EXPECT_FALSE(outcome);
    EXPECT_TRUE(outcome.reason.contains(u"/nonexistent/folder"_s)) << outcome.reason.toStdString();
    EXPECT_FALSE(outcome.reason.endsWith(u'.'));
    EXPECT_FALSE(launch(QByteArray(200'000, 'x'), notify + "/\n"));
    EXPECT_EQ(tokens.abandoned, QStringList({u"token 2"_s, u"token 3"_s}));
    EXPECT_EQ(applications.launch(u"absent"_s, tokens).reason,
              u"no application has that identifier"_s);
    EXPECT_EQ(tokens.began, QStringList({u"x"_s, u"x"_s, u"x"_s}));
}

TEST_F(Launch, HasTheBusStartWhatAsksForItAndOutlivesTheBus) {
    const QString id = u"org.example.X"_s;
    const QByteArray activatable = "DBusActivatable=true\n";
    ASSERT_TRUE(launch("direct", activatable, id)) << "there is no bus";
    EXPECT_EQ(told()["arguments"], "direct\n");

    writeFile(world.folder.filePath(u"dbus-1/services/x.service"_s),
              "[D-BUS Service]\nName=org.example.X\nExec=" BRIMLOW_LAUNCH_WITNESS " bus\n");
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"XDG_DATA_HOME"_s, world.folder.path());
    desktop::PrivateBus bus(world.folder.path());
    ASSERT_EQ(bus.start(environment), QString());
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus.address().toUtf8());
    ASSERT_TRUE(launch("direct", activatable, id));
    EXPECT_EQ(told()["arguments"], "bus\n");
    ASSERT_TRUE(launch("direct", activatable + "StartupNotify=true\n", u"org.example.Nobody"_s));
    EXPECT_EQ(tokens.abandoned, QStringList());
    const QDeadlineTimer deadline(10'000);
    while (tokens.abandoned.isEmpty() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    EXPECT_EQ(tokens.abandoned, QStringList{u"token 1"_s});

    bus.stop();
    for (int turn = 0; turn < 20; ++turn)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    ASSERT_TRUE(launch("still here"));
    EXPECT_EQ(told()["arguments"], "still\nhere\n");
}

} // namespace
} // namespace brimlow::test
