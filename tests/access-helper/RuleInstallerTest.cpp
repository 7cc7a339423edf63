#include "platform/linux/access/RuleInstaller.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <optional>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;
using platform::Outcome;
using platform::RuleInstaller;

const QString helper = QStringLiteral(BRIMLOW_ACCESS_HELPER);
const std::string terminal = ": run the commands below in a terminal instead.";

template<typename Condition>
bool waitFor(Condition condition) {
    const QDeadlineTimer deadline(20'000);
    while (!condition() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    return condition();
}

struct Installing : testing::Test {
    int argumentCount = 0;
    QCoreApplication application{argumentCount, nullptr};
    QTemporaryDir folder;

    QString pkexec(const std::string& script) {
        QFile file(folder.filePath(u"pkexec"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray::fromStdString("#!/bin/sh\n" + script + "\n"));
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return file.fileName();
    }

    static std::string answer(const QString& pkexec, const QString& helperPath = helper) {
        std::optional<Outcome> outcome;
        RuleInstaller installer(helperPath, pkexec);
        installer.install([&](const Outcome& answer) { outcome = answer; });
        EXPECT_FALSE(outcome) << "before install() has returned";
        if (!waitFor([&] { return outcome.has_value(); }))
            return "(none)";
        return outcome->done ? "done" : outcome->reason.toStdString();
    }
};

TEST_F(Installing, TellsWhatCameOfIt) {
    const std::pair<const char*, std::string> rows[] = {
        {"[ \"$#\" = 3 ] && [ \"$1 $3\" = '--disable-internal-agent install' ]", "done"},
        {"exit 126", "The question for the password was closed, so nothing was changed: try again, "
                     "or run the commands below in a terminal."},
        {"echo 'The value for the SHELL variable was not found the /etc/shells file' >&2\n"
         "echo >&2; echo 'This incident has been reported.' >&2; exit 127",
         "No administrator can be asked (pkexec says \"The value for the SHELL variable was not "
         "found the /etc/shells file\")"
             + terminal},
        {"echo noise >&2; echo 'Brimlow: It is so: do that.' >&2; exit 4", "It is so: do that."},
        {"exit 9", "Brimlow's helper failed with code 9" + terminal},
        {"kill -9 $$", "pkexec was stopped" + terminal},
        {"echo \"Brimlow: SHELL is ${SHELL-unset}\" >&2; exit 4", "SHELL is unset"},
    };
    qputenv("SHELL", "/usr/bin/nothing"); // which pkexec would refuse
    for (const auto& [script, expected] : rows)
        EXPECT_EQ(answer(pkexec(script)), expected) << script;
    EXPECT_EQ(answer(folder.filePath(u"nowhere"_s)),
              "pkexec, which asks for an administrator's password, is not installed" + terminal);
    EXPECT_EQ(answer(pkexec("exit 0"), folder.filePath(u"nowhere"_s)),
              "Brimlow's helper is missing from this installation" + terminal);
}

/// The real pkexec and polkit, on a bus of their own.
TEST_F(Installing, AsksPolkit) {
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can start a polkit of its own";
    const std::pair<std::string, std::string> rows[] = {
        {"nothing", "The service that asks for permission, polkit, does not run" + terminal},
        {"bus", "The service that asks for permission, polkit, does not run" + terminal},
        {"policy", "The administrator's permission was not given" + terminal},
        {"AUTH_ADMIN",
         "This desktop has nothing that asks for an administrator's password" + terminal},
        {"YES", "done"},
    };
    const std::string world = "unshare -m sh " BRIMLOW_TEST_FOLDER
                              "/namespace.sh " BRIMLOW_ACCESS_HELPER " " BRIMLOW_UDEV_RULE;
    const std::string polkit = " '. " BRIMLOW_TEST_FOLDER "/polkit.sh' " BRIMLOW_POLICY " ";
    for (const auto& [stage, expected] : rows)
        EXPECT_EQ(answer(pkexec("exec " + world + polkit + stage + " \"$@\"")), expected) << stage;
}

TEST_F(Installing, AnswersAllAtOnce) {
    RuleInstaller installer(helper, pkexec("echo run >>\"$0.log\"; sleep 0.2"));
    QFile log(folder.filePath(u"pkexec.log"_s));
    int answers = 0;
    const auto count = [&](const Outcome& outcome) { answers += outcome.done ? 1 : 0; };
    installer.install(count);
    EXPECT_TRUE(waitFor([&] { return log.size() > 0; }));
    installer.install(count);
    EXPECT_TRUE(waitFor([&] { return answers == 2; }));
    EXPECT_TRUE(log.open(QIODevice::ReadOnly));
    EXPECT_EQ(log.readAll(), "run\n");
    installer.install([&](const Outcome& outcome) {
        installer.install(count);
        count(outcome);
    });
    EXPECT_TRUE(waitFor([&] { return answers == 4; }));
}

TEST_F(Installing, EndsQuestionWithItself) {
    bool answered = false;
    QFile pid(folder.filePath(u"pkexec.pid"_s));
    {
        RuleInstaller installer(helper, pkexec("echo $$ >\"$0.pid\"; exec sleep 60"));
        installer.install([&](const Outcome&) { answered = true; });
        ASSERT_TRUE(waitFor([&] { return pid.size() > 0; }));
    }
    ASSERT_TRUE(pid.open(QIODevice::ReadOnly));
    const pid_t child = pid.readAll().trimmed().toInt();
    EXPECT_TRUE(waitFor([&] { return kill(child, 0) != 0; })) << "killed and waited for";
    RuleInstaller(helper, u"/nowhere"_s).install([&](const Outcome&) { answered = true; });
    QCoreApplication::processEvents();
    EXPECT_FALSE(answered);
}

} // namespace
} // namespace brimlow::test
