#include "platform/NSWorkspace.h"
#include "tests/support/TestPlatform.h"

#include <gtest/gtest.h>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;
using namespace platform;

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
    QStringList running;
    for (const auto& each : NSWorkspace::runningApplications())
        running << each.localizedName().value_or(u"nobody"_s) + u' '
                       + QString::number(each.processIdentifier());
    EXPECT_EQ(running, (QStringList{u"VIEWER 100"_s, u"WRITER 200"_s, u"CALC 200"_s,
                                    u"Dialog 200"_s, u"Tool 0"_s, u"nobody 300"_s}));
}

} // namespace
} // namespace brimlow::test
