#include "tests/actions/ActionWorld.h"

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;
using platform::DesktopEntry;

struct ApplicationLaunch : ActionWorld {
    QString open(const QString& name) { return execute(TapAction::openApp, name); }
    QStringList launches() { return world.applications.takeLaunches(); }
};

TEST_F(ApplicationLaunch, OpensByIdentifierElseByAPartOfTheName) {
    auto& applications = world.applications;
    applications.install({.id = u"b"_s, .name = u"Rechner"_s, .plainName = u"Calculator"_s});
    applications.install({.id = u"chrome"_s, .plainName = u"Google Chrome"_s});
    applications.install({.id = u"z"_s, .plainName = u"ÉCLAIR 日本"_s, .executable = u"eclair"_s});
    applications.install({.id = u"slash"_s, .plainName = u"A/B"_s});
    applications.install({.id = u"tool"_s, .plainName = u"Tool"_s, .listed = false});
    applications.install({.id = u"mine"_s, .plainName = u"Homemade"_s, .userOwned = true});
    const struct {
        QString name;
        QString result;
        QString launched;
    } rows[] = {
        {u"chrome"_s, u"Opening chrome"_s, u"chrome"_s}, // its identifier comes first
        {u"CHROME"_s, u"Opening Google Chrome"_s, u"chrome"_s},
        {u"calc"_s, u"Opening Rechner"_s, u"b"_s},
        {u"rechner"_s, u"Could not find application: rechner"_s, {}},
        {u"éclair"_s, u"Opening ÉCLAIR 日本"_s, u"z"_s},
        {u"a:b"_s, u"Opening A/B"_s, u"slash"_s},
        {u"mail"_s, u"Opening Post"_s, mail}, // Mail before Mailbox
        {u"Mail.app"_s, u"Could not find application: Mail.app"_s, {}},
        {u" chrome"_s, u"Opening Google Chrome"_s, u"chrome"_s},
        {u"chrome "_s, u"Could not find application: chrome "_s, {}},
        {u"Too"_s, u"Could not find application: Too"_s, {}}, // menus hide it
        {u"tool"_s, u"Opening tool"_s, u"tool"_s},
        {u"home"_s, u"Could not find application: home"_s, {}}, // the main folder only
        {u"mine"_s, u"Opening mine"_s, u"mine"_s},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(open(row.name), row.result);
        EXPECT_EQ(launches(), row.launched.isEmpty() ? QStringList() : QStringList(row.launched));
    }
    applications.remove(u"chrome"_s);
    EXPECT_EQ(open(u"chrome"_s), u"Could not find application: chrome"_s);
}

TEST_F(ApplicationLaunch, NamesTheExecutableWhereThereIsNoDisplayName) {
    DesktopEntry nameless{.id = u"n"_s, .plainName = u"Foo Bar"_s, .executable = u"foo"_s};
    nameless.name = u" "_s;
    world.applications.install(nameless);
    EXPECT_EQ(open(u"foo"_s), u"Opening  "_s);
}

TEST_F(ApplicationLaunch, BringsARunningApplicationForwardAndStartsNothing) {
    auto& session = world.session;
    session.openWindow(mail, 100, u"first"_s);
    session.openWindow(mail, 101, u"last used"_s);
    session.window(session.openWindow(mail, 100, u"hidden"_s)).hidden = true;
    session.openWindow(u"other"_s, 102, u"other"_s);
    EXPECT_EQ(open(mail), u"Opening org.example.mail"_s);
    EXPECT_EQ(session.takeJournal(), QStringList(u"activate last used"_s));
    EXPECT_EQ(launches(), QStringList());
}

TEST_F(ApplicationLaunch, AFailedStartIsToldButNotInTheResult) {
    world.applications.failNextLaunch();
    EXPECT_EQ(executor->execute(TapAction::openApp, mail, {}, {}), u"Opening org.example.mail"_s);
    EXPECT_EQ(world.log.take(platform::Stream::error),
              QStringList(u"Brimlow: \"Post\" cannot be started: the simulated world does not "
                          u"start it"_s));
    EXPECT_EQ(world.session.takeJournal(),
              (QStringList{u"startup org.example.mail"_s, u"abandon token of org.example.mail"_s}));
}

} // namespace
} // namespace brimlow::test
