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
        set("locked", "LockedHint", "<true>");
    }
    void set(const char* session, const char* name, const char* value) {
        ASSERT_TRUE(logind.setProperty(QString::fromLatin1(session), QString::fromLatin1(name),
                                       QString::fromLatin1(value)));
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
    struct Way {
        const char* what;
        const char* process;     // its session, or empty
        const char* environment; // XDG_SESSION_ID
        const char* display;     // the user's display session, or empty
        const char* found;
    };
    ASSERT_TRUE(logind.addSession(u"away"_s));
    set("away", "Active", "<false>");
    for (const Way& way : {Way{"by process", "locked", "open", "open", "locked"},
                           Way{"by environment", "", "locked", "open", "locked"},
                           Way{"by display", "", "", "locked", "locked"},
                           Way{"the named one is gone", "", "gone", "locked", "locked"},
                           Way{"in the background", "away", "", "", "away"}}) {
        SCOPED_TRACE(way.what);
        setProcess(QString::fromLatin1(way.process));
        qputenv("XDG_SESSION_ID", way.environment);
        setDisplay(QString::fromLatin1(way.display));
        told.clear();
        const auto before = logind.log().size();
        follow();
        EXPECT_TRUE(isLogged(u"GetAll "_s + pathOf(QString::fromLatin1(way.found)), before));
        EXPECT_TRUE(hears({false}));
    }
}

TEST_F(Following, TakesStatesOfWrongTypesForNone) {
    ASSERT_TRUE(logind.addSession(u"broken"_s));
    set("broken", "Active", "<''>");
    set("broken", "LockedHint", "<'yes'>");
    setProcess(u"broken"_s);
    follow();
    EXPECT_TRUE(isLogged(u"GetAll "_s + pathOf(u"broken"_s)));
    set("broken", "Active", "<true>");
    set("broken", "Active", "<false>");
    EXPECT_TRUE(hears({false}));
}

TEST_F(Following, TellsEveryChangeOnce) {
    setDisplay(u"open"_s);
    follow();
    ASSERT_TRUE(isLogged(u"GetAll "_s + pathOf(u"open"_s)));
    set("open", "LockedHint", "<true>");
    EXPECT_TRUE(hears({false}));
    set("open", "Active", "<false>");
    set("open", "LockedHint", "<false>");
    set("open", "Active", "<true>");
    EXPECT_TRUE(hears({false, true}));
    set("locked", "Active", "<false>"); // another's
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
