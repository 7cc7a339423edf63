#include "actions/ActionExecutor.h"

#include "tests/support/TestPlatform.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;
using platform::Stream;

const QString trustedLine = u"ActionExecutor: AXIsProcessTrusted = true"_s;

struct Executor : testing::Test {
    TestPlatform world;
    ActionExecutor executor;

    QString execute(TapAction action, const std::optional<QString>& appName = {}) {
        return executor.execute(action, appName, {}, {});
    }
};

TEST_F(Executor, EveryActionAsksForTrustAndDoesNothingWithoutIt) {
    world.session.openWindow(u"xterm"_s, 100, u"shell"_s);
    world.session.setTrusted(false);
    for (const auto action : allTapActions) {
        EXPECT_EQ(execute(action, u"xterm"_s),
                  u"⚠️ Accessibility NOT granted — prompted user"_s);
        EXPECT_EQ(world.log.take(),
                  (QStringList{u"ActionExecutor: AXIsProcessTrusted = false"_s,
                               u"Brimlow: "_s + world.session.abilities().complaint()}));
    }
    EXPECT_EQ(world.session.takeJournal(), QStringList());
}

TEST_F(Executor, SaysWhatItDid) {
    struct Row {
        TapAction action;
        std::optional<QString> appName;
        QString result;
        QStringList journal;
    };
    world.session.setWorkspaces(3, 1);
    for (const Row& row :
         {Row{TapAction::none, {}, u"No action"_s, {}},
          Row{TapAction::switchDesktopLeft, {}, u"Switching left"_s, {u"workspace 0"_s}},
          Row{TapAction::switchDesktopLeft, {}, u"Switching left"_s, {u"workspace 0"_s}},
          Row{TapAction::switchDesktopRight, {}, u"Switching right"_s, {u"workspace 1"_s}},
          Row{TapAction::closeWindow,
              {},
              u"Closing window"_s,
              {u"key 13 down flags 100000"_s, u"key 13 up flags 100000"_s}},
          Row{TapAction::openApp, {}, u"No app name specified"_s, {}},
          Row{TapAction::openApp, u""_s, u"No app name specified"_s, {}},
          Row{TapAction::openApp, u" "_s, u"Could not find application:  "_s, {}},
          Row{TapAction::focusWindow, u""_s, u"No app specified"_s, {}},
          Row{TapAction::focusWindow, u" "_s, u"App not running and not installed:  "_s, {}},
          Row{TapAction::toggleBrimlow,
              {},
              u"Toggle Brimlow (should be intercepted by AppCoordinator)"_s,
              {}},
          Row{TapAction::customCommand, {}, u"Custom command (not implemented)"_s, {}}}) {
        EXPECT_EQ(execute(row.action, row.appName), row.result);
        EXPECT_EQ(world.session.takeJournal(), row.journal);
        EXPECT_EQ(world.log.take(Stream::output), QStringList(trustedLine));
    }
}

TEST_F(Executor, HidesAllApplicationsButItselfAndCountsThem) {
    auto& session = world.session;
    EXPECT_EQ(execute(TapAction::hideAll), u"Hid 0 apps"_s);

    session.openWindow(u"org.brimlow.Brimlow"_s, 7, u"ours by name"_s);
    session.openWindow(u"settings"_s, getpid(), u"ours by process"_s);
    session.window(session.openWindow(u"agent"_s, 101, u"not in the task list"_s)).inTaskList =
        false;
    session.window(session.openWindow(u"hidden"_s, 102, u"hidden before"_s)).hidden = true;
    session.openWindow(u"refusing"_s, 103, u"refuses"_s);
    session.refuseHiding(u"refusing"_s);
    const auto shell = session.openWindow(u"xterm"_s, 104, u"shell"_s);
    EXPECT_EQ(execute(TapAction::hideAll), u"Hid 1 app"_s);
    EXPECT_EQ(session.takeJournal(), QStringList(u"hide shell"_s));

    session.window(shell).hidden = false;
    session.openWindow(u"xterm"_s, 105, u"a second instance"_s);
    session.openWindow(u"mail"_s, 104, u"another application of one process"_s);
    session.openWindow(u"mail"_s, 104, u"its second window"_s);
    EXPECT_EQ(execute(TapAction::hideAll), u"Hid 3 apps"_s);
    EXPECT_EQ(session.takeJournal(), (QStringList{u"hide shell"_s, u"hide a second instance"_s,
                                                  u"hide another application of one process"_s,
                                                  u"hide its second window"_s}));

    session.failNextWindowList();
    EXPECT_EQ(execute(TapAction::hideAll), u"Hid 0 apps"_s);
}

} // namespace
} // namespace brimlow::test
