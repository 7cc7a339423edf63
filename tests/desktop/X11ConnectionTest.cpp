#include "platform/none/NoSession.h"
#include "tests/desktop/X11Desktop.h"

#include <poll.h>

#include <csignal>

using namespace Qt::StringLiterals;

namespace brimlow::desktop {
namespace {

void expectRefusal(platform::Session& session, const QString& reason) {
    EXPECT_FALSE(session.windows().list());
    EXPECT_EQ(session.windows().activate(1).reason, reason);
    EXPECT_EQ(session.windows().close(1).reason, reason);
    EXPECT_EQ(session.workspaces().step(platform::Direction::left).reason, reason);
    EXPECT_FALSE(session.input().post({.keyCode = 13, .down = true, .flags = 0x100000}));
    const auto abilities = session.abilities();
    EXPECT_FALSE(abilities.controlsWindows || abilities.readsTitles
                 || abilities.switchesWorkspaces);
    EXPECT_TRUE(abilities.complaint().endsWith(u'.'));
}

TEST(X11Connection, TellsWhyAServerCannotBeReached) {
    platform::SimulatedApplications applications({});
    QString reason;
    EXPECT_EQ(platform::X11Session::connect("nowhere.invalid:77", applications, reason), nullptr);
    EXPECT_EQ(reason, u"the X server \"nowhere.invalid:77\" cannot be reached"_s);

    qunsetenv("DISPLAY");
    EXPECT_EQ(platform::X11Session::connect({}, applications, reason), nullptr);
    EXPECT_EQ(reason, u"DISPLAY names no X server"_s);
}

TEST(X11Connection, FailsWithAReasonOnceTheServerHasGone) {
    PrivateDesktop desktop(WindowManager::none);
    ASSERT_TRUE(desktop.start()) << desktop.error().toStdString();
    platform::SimulatedApplications applications({});
    QString reason;
    const auto session = platform::X11Session::connect(desktop.displayName(), applications, reason);
    ASSERT_TRUE(session) << reason.toStdString();
    EXPECT_FALSE(session->startup().begin({}).isEmpty());
    expectRefusal(*session, u"no window manager is running"_s);
    EXPECT_FALSE(session->connectionLost());

    ASSERT_EQ(::kill(static_cast<pid_t>(desktop.serverPid()), SIGKILL), 0);
    pollfd readable = {session->connectionFd(), POLLIN, 0};
    ASSERT_EQ(::poll(&readable, 1, 5000), 1);
    EXPECT_EQ(session->startup().begin({}), QString());
    session->startup().abandon(u"brimlow-1_TIME1"_s);
    EXPECT_TRUE(session->connectionLost());
    expectRefusal(*session, u"the connection to the X server is lost"_s);
}

TEST(NoSession, RefusesEverythingWithItsReason) {
    platform::NoSession session(u"there is no desktop here"_s, u"Find one."_s);
    expectRefusal(session, u"there is no desktop here"_s);
    EXPECT_EQ(session.windows().hide(1).reason, u"there is no desktop here"_s);
    EXPECT_EQ(
        session.abilities().complaint(),
        u"Windows and workspaces cannot be controlled: there is no desktop here. Find one."_s);
}

} // namespace
} // namespace brimlow::desktop
