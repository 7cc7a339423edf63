#include "tests/actions/ActionWorld.h"

#include <unistd.h>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;
using platform::Stream;

struct Executor : ActionWorld {
    platform::SimulatedSession& session = world.session;
};

TEST_F(Executor, EveryActionAsksForTrustAndDoesNothingWithoutIt) {
    session.openWindow(mail, 100, u"inbox"_s);
    session.setTrusted(false);
    for (const auto action : allTapActions) {
        EXPECT_EQ(executor->execute(action, mail, {}, {}),
                  u"⚠️ Accessibility NOT granted — prompted user"_s);
        EXPECT_EQ(world.log.take(),
                  (QStringList{u"ActionExecutor: AXIsProcessTrusted = false"_s,
                               u"Brimlow: "_s + session.abilities().complaint()}));
    }
    EXPECT_EQ(session.takeJournal(), QStringList());
}

TEST_F(Executor, SaysWhatItDid) {
    struct Row {
        TapAction action;
        QString appName;
        QString result;
        QStringList journal;
    };
    session.setWorkspaces(3, 1);
    for (const Row& row :
         {Row{TapAction::none, {}, u"No action"_s, {}},
          Row{TapAction::switchDesktopLeft, {}, u"Switching left"_s, {u"workspace 0"_s}},
          Row{TapAction::switchDesktopRight, {}, u"Switching right"_s, {u"workspace 1"_s}},
          Row{TapAction::closeWindow,
              {},
              u"Closing window"_s,
              {u"key 13 down flags 100000"_s, u"key 13 up flags 100000"_s}},
          Row{TapAction::openApp, {}, u"No app name specified"_s, {}},
          Row{TapAction::focusWindow, {}, u"No app specified"_s, {}},
          Row{TapAction::focusWindow, u" "_s, u"App not running and not installed:  "_s, {}},
          Row{TapAction::toggleBrimlow,
              {},
              u"Toggle Brimlow (should be intercepted by AppCoordinator)"_s,
              {}},
          Row{TapAction::customCommand, {}, u"Custom command (not implemented)"_s, {}}}) {
        EXPECT_EQ(execute(row.action, row.appName), row.result);
        EXPECT_EQ(session.takeJournal(), row.journal);
    }
}

TEST_F(Executor, HidesAllApplicationsButItselfAndCountsThem) {
    EXPECT_EQ(execute(TapAction::hideAll, {}), u"Hid 0 apps"_s);

    session.openWindow(u"org.brimlow.Brimlow"_s, 7, u"ours by name"_s);
    session.openWindow(u"settings"_s, getpid(), u"ours by process"_s);
    session.window(session.openWindow(u"agent"_s, 101, u"not in the task list"_s)).inTaskList =
        false;
    session.window(session.openWindow(u"hidden"_s, 102, u"hidden before"_s)).hidden = true;
    session.openWindow(u"refusing"_s, 103, u"refuses"_s);
    session.refuseHiding(u"refusing"_s);
    const auto shell = session.openWindow(u"xterm"_s, 104, u"shell"_s);
    EXPECT_EQ(execute(TapAction::hideAll, {}), u"Hid 1 app"_s);
    EXPECT_EQ(session.takeJournal(), QStringList(u"hide shell"_s));

    session.window(shell).hidden = false;
    session.openWindow(u"xterm"_s, 105, u"a second instance"_s);
    session.openWindow(u"mail"_s, 104, u"another application of one process"_s);
    session.openWindow(u"mail"_s, 104, u"its second window"_s);
    EXPECT_EQ(execute(TapAction::hideAll, {}), u"Hid 3 apps"_s);
    EXPECT_EQ(session.takeJournal(), (QStringList{u"hide shell"_s, u"hide a second instance"_s,
                                                  u"hide another application of one process"_s,
                                                  u"hide its second window"_s}));
}

TEST_F(Executor, OpensByIdentifierElseByAPartOfTheName) {
    auto& applications = world.applications;
    applications.install({.id = u"b"_s, .name = u"Rechner"_s, .plainName = u"Calculator"_s});
    applications.install({.id = u"chrome"_s, .plainName = u"Google Chrome"_s});
    applications.install({.id = u"e"_s, .plainName = u"ÉCLAIR"_s, .executable = u"eclair"_s});
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
        {u"éclair"_s, u"Opening ÉCLAIR"_s, u"e"_s},
        {u"a:b"_s, u"Opening A/B"_s, u"slash"_s},
        {u"mail"_s, u"Opening Post"_s, mail}, // Mail before Mailbox
        {u"chrome "_s, u"Could not find application: chrome "_s, {}},
        {u"Too"_s, u"Could not find application: Too"_s, {}}, // menus hide it
        {u"tool"_s, u"Opening tool"_s, u"tool"_s},
        {u"home"_s, u"Could not find application: home"_s, {}}, // the main folder only
    };
    for (const auto& row : rows) {
        EXPECT_EQ(execute(TapAction::openApp, row.name), row.result);
        EXPECT_EQ(world.applications.takeLaunches().join(u' '), row.launched);
    }
}

TEST_F(Executor, AFailedStartIsToldButNotInTheResult) {
    world.applications.failNextLaunch();
    EXPECT_EQ(executor->execute(TapAction::openApp, mail, {}, {}), u"Opening org.example.mail"_s);
    EXPECT_EQ(world.log.take(Stream::error),
              QStringList(u"Brimlow: \"Post\" cannot be started: the simulated world does not "
                          u"start it"_s));
    EXPECT_EQ(session.takeJournal(),
              (QStringList{u"startup org.example.mail"_s, u"abandon token of org.example.mail"_s}));
}

} // namespace
} // namespace brimlow::test
