#include "ui/permissions/PermissionsStatusView.h"

#include "tests/support/TestPlatform.h"
#include "tests/ui/pickers/Shown.h"
#include "ui/controls/Badge.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <gtest/gtest.h>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;
using platform::Stream;

const QString accessibility = QStringLiteral("Accessibility");
const QString automation = QStringLiteral("Automation (System Events)");
const QString screenRecording = QStringLiteral("Screen Recording");

/// The page where no trackpad can be read, but titles of windows can.
struct Permissions : testing::Test {
    TestPlatform world;
    PermissionsManager manager;
    int terminations = 0;
    std::unique_ptr<PermissionsStatusView> view;

    Permissions() {
        world.devices.plugIn({u"Pad"_s, u"/dev/input/event5"_s, u"Permission denied"_s,
                              platform::TrackpadRemedy::installRule});
        view = std::make_unique<PermissionsStatusView>(manager, [this] { ++terminations; });
        view->show();
    }

    /// A tool in the place of the one that resets; it notes what it is asked to do.
    void installTool(int status) {
        const QString path = world.bundle.pathForAuxiliaryExecutable(u"tccutil"_s);
        QDir().mkpath(QFileInfo(path).path());
        QFile tool(path);
        ASSERT_TRUE(tool.open(QIODevice::WriteOnly));
        tool.write("#!/bin/sh\necho \"$*\" >>\"$0.calls\"\nexit " + QByteArray::number(status)
                   + '\n');
        tool.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    QString toolCalls() const {
        QFile calls(world.bundle.pathForAuxiliaryExecutable(u"tccutil.calls"_s));
        return calls.open(QIODevice::ReadOnly) ? QString::fromUtf8(calls.readAll()) : QString();
    }

    void press(const QString& name) {
        auto* button = shownButton(*view, name);
        ASSERT_TRUE(button) << name.toStdString();
        button->setFocus();
        QTest::keyClick(button, Qt::Key_Space);
    }
    void pressGrant(const QString& row) { press(u"Grant + Open Settings: "_s + row); }
    /// How often, on the page and on the dialogs over it.
    qsizetype shows(const QString& text) { return shownTexts(*view).count(text); }
    QStringList badges() {
        QStringList texts;
        for (const auto* badge : view->findChildren<controls::Badge*>())
            texts << badge->text();
        return texts;
    }
    QStringList journal() { return world.settings.takeJournal(); }
};

TEST_F(Permissions, AccessibilityFollowsTheManagerAndScreenRecordingDoesNot) {
    manager.startPolling();
    EXPECT_EQ(badges(), (QStringList{u"Not Granted"_s, u"Check in Settings"_s, u"Granted"_s,
                                     u"System Setting"_s}));
    world.devices.unplugAll();
    world.session.setReadsTitles(false);
    world.time.advance(2);
    EXPECT_FALSE(manager.screenRecordingGranted);
    EXPECT_EQ(badges()[0], u"Granted"_s);
    EXPECT_EQ(badges()[2], u"Granted"_s) << "outdated";
    press(u"Re-check All"_s);
    EXPECT_EQ(badges()[2], u"Not Granted"_s);
    EXPECT_EQ(view->focusWidget(), shownButton(*view, u"Re-check All"_s));
    view->hide();
    world.session.setReadsTitles(true);
    world.time.advance(4);
    EXPECT_EQ(badges()[2], u"Not Granted"_s);
    view->show();
    EXPECT_EQ(badges()[2], u"Granted"_s);
}

TEST_F(Permissions, GrantAsksAtOnceAndOpensThePaneSoonAfter) {
    installTool(1);
    for (const auto& [title, pane] :
         {std::pair(accessibility, u"accessibility"_s), std::pair(automation, u"automation"_s),
          std::pair(screenRecording, u"screen recording"_s)}) {
        world.session.setTrusted(false);
        view->recheck();
        pressGrant(title);
        EXPECT_EQ(journal(), QStringList(u"prompt "_s + pane));
        EXPECT_FALSE(manager.hasPromptedAccessibility || manager.hasPromptedAppleEvents
                     || manager.hasPromptedScreenRecording);
        world.time.advance(0.299);
        EXPECT_EQ(journal(), QStringList());
        world.time.advance(0.001);
        EXPECT_EQ(journal(), QStringList(u"open "_s + pane));
        world.session.setTrusted(true);
        world.time.advance(0.2); // half a second since the press
        EXPECT_EQ(badges()[2], title == screenRecording ? u"Granted"_s : u"Not Granted"_s);
        world.time.advance(0.799);
        EXPECT_FALSE(manager.screenRecordingGranted);
        world.time.advance(0.001);
        EXPECT_TRUE(manager.screenRecordingGranted);
        EXPECT_EQ(badges()[2], u"Granted"_s);
    }
    EXPECT_EQ(toolCalls(), u"reset AppleEvents org.brimlow.Brimlow\n"_s);
    EXPECT_TRUE(world.log.take(Stream::error)
                    .contains(u"Permissions.Automation request: System Events got an error: the "
                              u"simulated world does not trust us."_s));
    press(u"Reveal Brimlow.app: "_s + automation);
    press(u"Open Keyboard Shortcuts"_s);
    EXPECT_EQ(journal(), (QStringList{u"reveal /usr/bin/brimlow"_s, u"open keyboard shortcuts"_s}));
}

TEST_F(Permissions, AResetIsOfferedFromARecheckUntilThePressesAreLongAgo) {
    const QString offer = u"Grant doesn't seem to be working"_s;
    manager.startPolling();
    for (int press = 0; press < 3; ++press)
        manager.recordGrantAttempt();
    world.time.advance(2);
    EXPECT_FALSE(shows(offer)) << "would push away what is being pressed";
    view->recheck();
    EXPECT_TRUE(shows(offer));
    world.time.advance(600);
    EXPECT_FALSE(shows(offer));
}

TEST_F(Permissions, AResetThatFailsIsToldAndOneThatDoesNotEndsTheApplication) {
    installTool(1);
    for (int twice = 0; twice < 2; ++twice)
        shownButton(*view, u"Reset Permissions"_s)->click();
    EXPECT_EQ(shows(u"Reset all permissions for Brimlow?"_s), 1);
    EXPECT_EQ(toolCalls(), QString());
    press(u"Reset && Relaunch"_s);
    for (int twice = 0; twice < 2; ++twice) {
        view->runReset();
        EXPECT_EQ(shows(u"Couldn't reset permissions"_s), 1);
        EXPECT_EQ(shows(u"Try running this manually in Terminal: tccutil reset All "
                        u"org.brimlow.Brimlow"_s),
                  1);
        press(u"OK"_s);
        EXPECT_EQ(shows(u"Couldn't reset permissions"_s), 0);
    }
    world.time.advance(1);
    EXPECT_EQ(terminations, 0);

    installTool(0);
    press(u"Reset Permissions"_s);
    press(u"Reset && Relaunch"_s);
    world.time.advance(0.499);
    EXPECT_EQ(terminations, 0);
    view.reset();
    world.time.advance(0.001);
    EXPECT_EQ(terminations, 1);
}

TEST_F(Permissions, WhatAPressHasBegunGoesOnWithoutThePage) {
    world.session.setReadsTitles(false);
    pressGrant(screenRecording);
    view.reset();
    world.time.advance(2);
    EXPECT_EQ(journal(), (QStringList{u"prompt screen recording"_s, u"open screen recording"_s}));
    EXPECT_EQ(world.time.pending(), 0U);
}

} // namespace
} // namespace brimlow::test
