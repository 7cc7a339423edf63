#include "ui/permissions/PermissionsStatusView.h"

#include "tests/support/TestPlatform.h"
#include "tests/ui/pickers/Shown.h"
#include "ui/controls/Badge.h"
#include "ui/controls/Sheet.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTest>

#include <gtest/gtest.h>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;
using platform::NSBundle;
using platform::Stream;

const QString stuckHeading = QStringLiteral("Grant doesn't seem to be working");
const QString pad = QStringLiteral("/dev/input/event5");

/// The page where no trackpad can be read, but titles of windows can.
struct Permissions : testing::Test {
    TestPlatform world;
    PermissionsManager manager;
    int terminations = 0;
    std::unique_ptr<PermissionsStatusView> view;

    Permissions() {
        world.devices.plugIn(
            {u"Pad"_s, pad, u"Permission denied"_s, platform::TrackpadRemedy::installRule});
    }

    void grantAccessibility() {
        world.devices.unplugAll();
        world.devices.plugIn({u"Pad"_s, pad});
    }
    void open() {
        view = std::make_unique<PermissionsStatusView>(manager, [this] { ++terminations; });
        view->show();
        view->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
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

    QPushButton* button(const QString& text) { return shownButton(*view, text); }
    QPushButton* grant(const QString& row) { return button(u"Grant + Open Settings: "_s + row); }
    void press(QPushButton* pressed) {
        ASSERT_TRUE(pressed);
        pressed->setFocus();
        QTest::keyClick(pressed, Qt::Key_Space);
    }
    QStringList badges() {
        QStringList texts;
        for (const auto* badge : view->findChildren<controls::Badge*>())
            texts << badge->text();
        return texts;
    }
    bool stuck() { return shownTexts(*view).contains(stuckHeading); }
    QStringList journal() { return world.settings.takeJournal(); }
    /// The dialogs that are open.
    QList<controls::Sheet*> sheets() {
        QList<controls::Sheet*> open;
        for (auto* sheet : view->findChildren<controls::Sheet*>())
            if (sheet->isVisible())
                open << sheet;
        return open;
    }
};

const QString accessibility = QStringLiteral("Accessibility");
const QString automation = QStringLiteral("Automation (System Events)");
const QString screenRecording = QStringLiteral("Screen Recording");

TEST_F(Permissions, AreToldInOrderAndReachedByTheKeyboard) {
    open();
    QStringList headings;
    for (const QString& text : shownTexts(*view))
        if (text.size() < 50)
            headings << text;
    EXPECT_EQ(headings, (QStringList{u"Permissions"_s, accessibility, u"Not Granted"_s, automation,
                                     u"Check in Settings"_s, screenRecording, u"Granted"_s,
                                     u"Mission Control Shortcuts"_s, u"System Setting"_s,
                                     u"Troubleshooting"_s,
                                     u"If Brimlow doesn't appear in a Settings list…"_s}));
    QStringList stops;
    press(grant(accessibility));
    for (int step = 0; step < 9; ++step) {
        const auto* focused = qobject_cast<QPushButton*>(QApplication::focusWidget());
        ASSERT_TRUE(focused);
        stops << focused->text();
        QTest::keyClick(view.get(), Qt::Key_Tab);
    }
    const QStringList row{u"Grant + Open Settings"_s, u"Reveal Brimlow.app"_s};
    const QStringList rest{u"Open Keyboard Shortcuts"_s, u"Reset Permissions"_s, u"Re-check All"_s};
    EXPECT_EQ(stops, row + row + row + rest);
    journal();
    press(button(u"Reveal Brimlow.app: "_s + automation));
    press(button(u"Open Keyboard Shortcuts"_s));
    EXPECT_EQ(journal(), (QStringList{u"reveal /usr/bin/brimlow"_s, u"open keyboard shortcuts"_s}));
}

TEST_F(Permissions, AccessibilityFollowsTheManagerAndScreenRecordingDoesNot) {
    open();
    manager.startPolling();
    auto* focused = button(u"Re-check All"_s);
    focused->setFocus();
    grantAccessibility();
    world.session.setReadsTitles(false);
    world.time.advance(2);
    const QStringList outdated{u"Granted"_s, u"Check in Settings"_s, u"Granted"_s,
                               u"System Setting"_s};
    EXPECT_EQ(badges(), outdated);
    EXPECT_FALSE(manager.screenRecordingGranted);
    EXPECT_TRUE(grant(accessibility) && button(u"Reveal Brimlow.app: "_s + accessibility));
    press(focused);
    EXPECT_EQ(badges()[2], u"Not Granted"_s);
    EXPECT_EQ(QApplication::focusWidget(), focused);
    view->hide();
    world.session.setReadsTitles(true);
    world.time.advance(4);
    EXPECT_EQ(badges()[2], u"Not Granted"_s);
    view->show();
    EXPECT_EQ(badges(), outdated);
}

TEST_F(Permissions, GrantAsksAtOnceAndOpensThePaneSoonAfter) {
    installTool(1);
    struct Row {
        QString title;
        QString pane;
        QString complaint;
    };
    for (const Row& row :
         {Row{accessibility, u"accessibility"_s,
              u"Brimlow: Windows and workspaces cannot be controlled: the simulated world does not "
              u"trust us. Ask it nicely."_s},
          Row{automation, u"automation"_s,
              u"Permissions.Automation request: System Events got an error: the simulated world "
              u"does not trust us."_s},
          Row{screenRecording, u"screen recording"_s,
              u"Brimlow: The titles of windows cannot be read: titles are secret here. Ask it "
              u"nicely."_s}}) {
        world.session.setTrusted(false);
        open();
        world.log.take();
        press(grant(row.title));
        EXPECT_EQ(journal(), QStringList(u"prompt "_s + row.pane));
        EXPECT_EQ(world.log.take(Stream::error).value(row.title == accessibility), row.complaint);
        EXPECT_FALSE(manager.hasPromptedAccessibility || manager.hasPromptedAppleEvents
                     || manager.hasPromptedScreenRecording);
        world.time.advance(0.299);
        EXPECT_EQ(journal(), QStringList());
        world.time.advance(0.001);
        EXPECT_EQ(journal(), QStringList(u"open "_s + row.pane));
        world.session.setTrusted(true);
        world.time.advance(0.199);
        EXPECT_EQ(badges()[2], u"Not Granted"_s);
        world.time.advance(0.001);
        EXPECT_EQ(badges()[2], row.title == screenRecording ? u"Granted"_s : u"Not Granted"_s);
        world.time.advance(0.799);
        EXPECT_FALSE(manager.screenRecordingGranted);
        world.time.advance(0.001);
        EXPECT_TRUE(manager.screenRecordingGranted);
        EXPECT_EQ(badges()[2], u"Granted"_s);
    }
    EXPECT_EQ(toolCalls(), u"reset AppleEvents org.brimlow.Brimlow\n"_s);
}

TEST_F(Permissions, ThreePressesInVainOfferAReset) {
    open();
    manager.startPolling();
    world.time.advance(1);
    for (const QString& row : {accessibility, automation, screenRecording})
        press(grant(row));
    world.time.advance(1.299); // polled meanwhile
    EXPECT_FALSE(stuck());
    world.time.advance(0.001);
    EXPECT_TRUE(stuck());
    world.time.advance(598.7);
    EXPECT_TRUE(stuck());
    world.time.advance(2);
    EXPECT_FALSE(stuck()) << "that is long ago";
    for (int press = 0; press < 3; ++press)
        manager.recordGrantAttempt();
    view->recheck();
    EXPECT_TRUE(stuck());
    grantAccessibility();
    world.time.advance(2);
    EXPECT_FALSE(stuck());
}

TEST_F(Permissions, AResetThatIsCancelledOrFailsKeepsEverything) {
    world.bundle =
        NSBundle({}, {}, world.folder.filePath(u"libexec"_s)); // without an identifier of its own
    installTool(1);
    open();
    manager.recordGrantAttempt();
    for (int twice = 0; twice < 2; ++twice)
        button(u"Reset Permissions"_s)->click();
    ASSERT_EQ(sheets().size(), 1);
    EXPECT_TRUE(shownTexts(*sheets()[0]).contains(u"Reset all permissions for Brimlow?"_s));
    for (const auto key : {Qt::Key_Escape, Qt::Key_Return}) {
        button(u"Reset Permissions"_s)->click();
        QTest::keyClick(sheets()[0], key);
        EXPECT_EQ(sheets().size(), 0);
    }
    EXPECT_EQ(toolCalls(), QString());

    button(u"Reset Permissions"_s)->click();
    auto* reset = shownButton(*sheets()[0], u"Reset && Relaunch"_s); // one of them is seen
    press(reset);
    view->runReset();
    ASSERT_EQ(sheets().size(), 1);
    EXPECT_EQ(shownTexts(*sheets()[0]),
              (QStringList{u"Couldn't reset permissions"_s,
                           u"Try running this manually in Terminal: tccutil reset All "
                           u"org.brimlow.Brimlow"_s}));
    press(shownButton(*sheets()[0], u"OK"_s));
    EXPECT_EQ(sheets().size(), 0);
    world.time.advance(1);
    EXPECT_EQ(terminations, 0);
    EXPECT_TRUE(world.defaults.arrayForKey(PermissionsManager::grantAttemptsKey));
    view->runReset();
    EXPECT_EQ(sheets().size(), 1) << "told anew";
}

TEST_F(Permissions, AResetEndsTheApplicationSoonAfter) {
    installTool(0);
    open();
    press(button(u"Reset Permissions"_s));
    press(shownButton(*sheets()[0], u"Reset && Relaunch"_s));
    EXPECT_EQ(toolCalls(), u"reset All org.brimlow.Brimlow\n"_s);
    EXPECT_EQ(sheets().size(), 0);
    world.time.advance(0.499);
    EXPECT_EQ(terminations, 0);
    view.reset();
    world.time.advance(0.001);
    EXPECT_EQ(terminations, 1);
}

TEST_F(Permissions, WhatAPressHasBegunGoesOnWithoutThePage) {
    world.session.setReadsTitles(false);
    open();
    press(grant(screenRecording));
    view.reset();
    world.time.advance(2);
    EXPECT_EQ(journal(), (QStringList{u"prompt screen recording"_s, u"open screen recording"_s}));
    EXPECT_EQ(world.time.pending(), 0U);
}

} // namespace
} // namespace brimlow::test
