#include "platform/NSWorkspace.h"
#include "tests/support/TestPlatform.h"

#include <gtest/gtest.h>

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

TEST(RunningApplications, AreListedAsTheyCameAndActiveInAllTheirProcesses) {
    TestPlatform world;
    const auto first = world.session.openWindow(u"term"_s, 100, u"first"_s);
    world.session.openWindow(u"edit"_s, 101, u"editor"_s);
    world.session.openWindow(u"term"_s, 102, u"second"_s);
    world.session.windows().activate(first);
    EXPECT_EQ(running(), (QStringList{u"term 100*"_s, u"edit 101"_s, u"term 102*"_s}));
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
