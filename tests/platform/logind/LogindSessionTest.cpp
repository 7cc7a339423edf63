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

/// In the environment for all tests of the process, because libdbus looks there once.
const QString& busFolder() {
    static const QTemporaryDir folder;
    static const QString path = folder.path();
    return path;
}

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
    desktop::MockedLogind logind{busFolder()};
    std::vector<bool> told;
    std::optional<LogindSession> followed;
};

TEST_F(Following, FindsItsSession) {
    // Numbers of sessions that there are: open, locked, and what is set below.
    struct Way {
        const char* what;
        const char* process;     // its session, or empty
        const char* environment; // XDG_SESSION_ID
        const char* display;     // the user's display session, or empty
        const char* found;
        bool active;
    };
    const Way ways[] = {
        {"by process", "locked", "", "", "locked", false},
        {"by environment", "", "locked", "", "locked", false},
        {"by display", "", "", "locked", "locked", false},
        {"process before environment", "open", "locked", "locked", "open", true},
        {"environment before display", "", "open", "locked", "open", true},
        {"the named one is gone", "", "gone", "locked", "locked", false},
        {"in the background", "away", "", "", "away", false},
        {"locked in the background", "both", "", "", "both", false},
        {"states of wrong types", "broken", "", "", "broken", true},
    };
    for (const char* id : {"away", "both", "broken"})
        ASSERT_TRUE(logind.addSession(QString::fromLatin1(id)));
    for (const Way& way : ways) {
        SCOPED_TRACE(way.what);
        set("open", "Active", "<true>");
        set("locked", "Active", "<true>");
        set("locked", "LockedHint", "<true>");
        set("away", "Active", "<false>");
        set("both", "Active", "<false>");
        set("both", "LockedHint", "<true>");
        set("broken", "Active", "<''>");
        set("broken", "LockedHint", "<'yes'>");
        setProcess(QString::fromLatin1(way.process));
        qputenv("XDG_SESSION_ID", way.environment);
        setDisplay(QString::fromLatin1(way.display));
        told.clear();
        const auto before = logind.log().size();
        follow();
        const QString path = pathOf(QString::fromLatin1(way.found));
        EXPECT_TRUE(isLogged(u"GetAll %1 "_s.arg(path), before));
        // It is this session that decides, and it was read as it should be.
        set(way.found, "LockedHint", "<false>");
        set(way.found, "Active", "<true>");
        set(way.found, "Active", "<false>");
        EXPECT_TRUE(hears(way.active ? std::vector{false} : std::vector{false, true, false}));
    }
}

TEST_F(Following, TellsEveryChangeOnce) {
    setDisplay(u"open"_s);
    follow();
    std::vector<bool> expected;
    const auto tells = [&](bool active) {
        expected.push_back(active);
        return hears(expected);
    };
    ASSERT_TRUE(isLogged(u"GetAll "_s + pathOf(u"open"_s)));
    set("open", "LockedHint", "<true>");
    EXPECT_TRUE(tells(false));
    set("open", "Active", "<false>");
    set("open", "LockedHint", "<false>");
    set("open", "Active", "<true>");
    EXPECT_TRUE(tells(true));
    set("locked", "Active", "<false>"); // another's
    set("locked", "Active", "<true>");
    // Changed without saying to what.
    const QString path = pathOf(u"open"_s);
    ASSERT_TRUE(
        logind.call(path, u"org.freedesktop.DBus.Mock.AddMethod"_s,
                    {u"org.freedesktop.login1.Session"_s, u"LockQuietly"_s, QString(), QString(),
                     u"self._set_property('org.freedesktop.login1.Session', 'LockedHint', True)"_s})
        && logind.call(path, u"org.freedesktop.login1.Session.LockQuietly"_s, {})
        && logind.call(path, u"org.freedesktop.DBus.Mock.EmitSignal"_s,
                       {u"org.freedesktop.DBus.Properties"_s, u"PropertiesChanged"_s, u"sa{sv}as"_s,
                        u"[<'org.freedesktop.login1.Session'>, <@a{sv} {}>, <['LockedHint']>]"_s}));
    EXPECT_TRUE(tells(false));
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
