#include "platform/linux/logind/LogindSession.h"

#include "tools/desktop/MockedLogind.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTemporaryDir>
#include <QTimer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <optional>

using namespace Qt::StringLiterals;

namespace brimlow::platform {
namespace {

using testing::IsEmpty;

class Following : public testing::Test {
protected:
    static QString pathOf(const QString& id) { return desktop::MockedLogind::pathOf(id); }

    void SetUp() override {
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", logind.address().toUtf8());
        qunsetenv("XDG_SESSION_ID");
        ASSERT_TRUE(logind.startBus());
        startLogind();
    }
    void startLogind() {
        ASSERT_TRUE(logind.startLogind() && logind.addSession(u"open"_s)
                    && logind.addSession(u"locked"_s));
        set(u"locked"_s, u"LockedHint"_s, u"<true>"_s);
    }
    void set(const QString& session, const QString& name, const QString& value) {
        ASSERT_TRUE(logind.setProperty(session, name, value));
    }
    /// No session when empty.
    void setDisplay(const QString& id) {
        ASSERT_TRUE(logind.setDisplay(
            id.isEmpty() ? u"<'none'>"_s : u"<('%1', objectpath '%2')>"_s.arg(id, pathOf(id))));
    }
    void setProcess(const QString& id) {
        ASSERT_TRUE(logind.answer(u"GetSessionByPID"_s,
                                  id.isEmpty()
                                      ? u"raise ValueError()"_s
                                      : u"ret = '%1' if args[0] == %2 else '/'"_s.arg(pathOf(id))
                                            .arg(QCoreApplication::applicationPid())));
    }
    void announce(const QString& signal, const QString& session) {
        ASSERT_TRUE(logind.call(u"/org/freedesktop/login1"_s,
                                u"org.freedesktop.DBus.Mock.EmitSignal"_s,
                                {u"org.freedesktop.login1.Manager"_s, signal, u"so"_s,
                                 u"[<'%1'>, <objectpath '%2'>]"_s.arg(session, pathOf(session))}));
    }
    void follow() {
        followed.emplace([this](bool active) { told.push_back(active); });
    }

    static void turn() {
        QEventLoop loop;
        QTimer::singleShot(5, &loop, &QEventLoop::quit);
        loop.exec();
    }
    template<typename Condition>
    static bool becomes(const Condition& condition) {
        const QDeadlineTimer deadline(10'000);
        while (!condition() && !deadline.hasExpired())
            turn();
        return condition();
    }
    bool isLogged(const QString& line, qsizetype from = 0) {
        return becomes([&] { return logind.log().mid(from).contains(line.toUtf8()); });
    }
    /// This, and nothing after it.
    bool hears(const std::vector<bool>& all) {
        becomes([&] { return told.size() >= all.size(); });
        turn();
        return told == all;
    }

    int argumentCount = 1;
    char programName[5] = "test";
    char* arguments[2] = {programName, nullptr};
    QCoreApplication application{argumentCount, arguments};
    // One for all tests of the process, because libdbus looks into the environment once.
    inline static const QTemporaryDir busFolder;
    desktop::MockedLogind logind{busFolder.path()};
    std::vector<bool> told;
    std::optional<LogindSession> followed;
};

TEST_F(Following, FindsItsSession) {
    const struct {
        QString process;         // its session, or empty
        const char* environment; // XDG_SESSION_ID
        QString display;         // the user's display session, or empty
        QString found;
    } ways[] = {{u"locked"_s, "open", u"open"_s, u"locked"_s},
                {{}, "locked", u"open"_s, u"locked"_s},
                {{}, "", u"locked"_s, u"locked"_s},
                {{}, "gone", u"locked"_s, u"locked"_s},
                {u"away"_s, "", {}, u"away"_s}};
    ASSERT_TRUE(logind.addSession(u"away"_s));
    set(u"away"_s, u"Active"_s, u"<false>"_s);
    for (const auto& way : ways) {
        setProcess(way.process);
        qputenv("XDG_SESSION_ID", way.environment);
        setDisplay(way.display);
        told.clear();
        const auto before = logind.log().size();
        follow();
        EXPECT_TRUE(isLogged(u"GetAll "_s + pathOf(way.found), before));
        EXPECT_TRUE(hears({false})) << way.found.toStdString();
    }
}

TEST_F(Following, TellsEveryChangeOnce) {
    setDisplay(u"open"_s);
    follow();
    ASSERT_TRUE(isLogged(u"GetAll "_s + pathOf(u"open"_s)));
    set(u"open"_s, u"LockedHint"_s, u"<true>"_s);
    EXPECT_TRUE(hears({false}));
    set(u"open"_s, u"Active"_s, u"<false>"_s);
    set(u"open"_s, u"LockedHint"_s, u"<false>"_s);
    set(u"open"_s, u"Active"_s, u"<true>"_s);
    EXPECT_TRUE(hears({false, true}));
    set(u"locked"_s, u"Active"_s, u"<false>"_s); // another's
    EXPECT_TRUE(hears({false, true}));
}

TEST_F(Following, LooksAgainWhenSessionsComeAndGo) {
    setDisplay({});
    follow();
    ASSERT_TRUE(
        isLogged(u"Get /org/freedesktop/login1/user/%1 org.freedesktop.login1.User.Display"_s.arg(
            getuid())));
    setDisplay(u"locked"_s);
    announce(u"SessionNew"_s, u"locked"_s);
    EXPECT_TRUE(hears({false}));
    setDisplay(u"open"_s);
    announce(u"SessionRemoved"_s, u"open"_s); // another
    EXPECT_TRUE(hears({false}));
    announce(u"SessionRemoved"_s, u"locked"_s);
    EXPECT_TRUE(hears({false, true}));
    EXPECT_TRUE(isLogged(u"GetAll "_s + pathOf(u"open"_s)));
    setProcess(u"locked"_s);
    announce(u"SessionRemoved"_s, u"open"_s);
    EXPECT_TRUE(hears({false, true, false}));
}

TEST_F(Following, TakesTheSessionForActiveWithoutLogindOrBus) {
    qputenv("XDG_SESSION_ID", "locked");
    follow();
    EXPECT_TRUE(hears({false}));
    logind.stopLogind();
    EXPECT_TRUE(hears({false, true}));
    startLogind();
    announce(u"SessionNew"_s, u"locked"_s);
    EXPECT_TRUE(hears({false, true, false}));
    logind.stopBus();
    EXPECT_TRUE(hears({false, true, false, true}));
    told.clear();
    follow();
    followed.reset(); // has tried to connect
    EXPECT_THAT(told, IsEmpty());
}

} // namespace
} // namespace brimlow::platform
