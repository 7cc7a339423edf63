#include "platform/NSWorkspace.h"
#include "tests/support/TestPlatform.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;
using namespace platform;

/// "<name> <pid>" of each, with "*" where it is active.
QStringList running() {
    QStringList lines;
    for (const auto& each : NSWorkspace::runningApplications())
        lines << each.localizedName().value_or(u"nobody"_s) + u' '
                     + QString::number(each.processIdentifier())
                     + (each.isActive() ? u"*"_s : u""_s);
    return lines;
}

TEST(RunningApplications, AreListedInTheOrderInWhichTheyCame) {
    TestPlatform world;
    auto& session = world.session;
    const auto first = session.openWindow(u"term"_s, 100, u"first"_s);
    session.openWindow(u"edit"_s, 101, u"editor"_s);
    session.openWindow(u"term"_s, 102, u"second"_s);
    session.openWindow(u"settings"_s, getpid(), u"ours"_s);
    EXPECT_EQ(running(), (QStringList{u"term 100"_s, u"edit 101"_s, u"term 102"_s,
                                      u"org.brimlow.Brimlow %1*"_s.arg(getpid())}));

    // Whatever is in front, the first instance stays the first; and it is active when another is.
    session.windows().activate(first + 2);
    EXPECT_EQ(running().first(), u"term 100*"_s);
    const auto terminals = NSRunningApplication::runningApplicationsWithBundleIdentifier(u"term"_s);
    ASSERT_EQ(terminals.size(), 2U);
    session.windows().activate(first + 1);
    session.takeJournal();
    EXPECT_TRUE(terminals.front().activateWithOptions());
    EXPECT_EQ(session.takeJournal(), QStringList(u"activate second"_s)); // raised last
}

TEST(RunningApplications, AWindowThatNamesNoApplicationBelongsToTheOneOfItsProcess) {
    TestPlatform world;
    auto& session = world.session;
    for (const QString& id : {u"writer"_s, u"calc"_s, u"viewer"_s})
        world.applications.install({.id = id, .name = id.toUpper(), .plainName = id});
    session.openWindow(u"Toplevel"_s, 100, u"a plug-in of it"_s);
    session.openWindow(u"viewer"_s, 100, u"picture"_s);
    session.openWindow(u"writer"_s, 200, u"letter"_s);
    session.openWindow(u"calc"_s, 200, u"table"_s);
    session.openWindow(u"Dialog"_s, 200, u"of either"_s);
    session.openWindow(u"Tool"_s, 0, u"no process"_s);
    session.openWindow({}, 300, u"nothing at all"_s);
    EXPECT_EQ(running(), (QStringList{u"VIEWER 100"_s, u"WRITER 200"_s, u"CALC 200"_s,
                                      u"Dialog 200"_s, u"Tool 0"_s, u"nobody 300*"_s}));
}

} // namespace
} // namespace brimlow::test
