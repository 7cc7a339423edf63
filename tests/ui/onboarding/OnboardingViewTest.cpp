#include "ui/onboarding/OnboardingView.h"

#include "engine/AppSettings.h"
#include "permissions/PermissionsManager.h"
#include "tests/support/TestPlatform.h"
#include "tests/ui/pickers/Shown.h"
#include "ui/controls/Badge.h"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;
using platform::Stream;

const QString accessibility = QStringLiteral("Accessibility");
const QString automation = QStringLiteral("Automation (System Events)");
const QString screenRecording = QStringLiteral("Screen Recording");
const QString grantText = QStringLiteral("Grant + Open Settings");
const QString reopenText = QStringLiteral("Re-open Settings");

/// The guide where nothing is granted.
struct Onboarding : testing::Test {
    TestPlatform world;
    AppSettings settings;
    PermissionsManager manager;
    int completions = 0;
    std::unique_ptr<OnboardingView> view;

    Onboarding() { setRights(false, false); }

    void setRights(bool readsPad, bool readsTitles) {
        world.devices.unplugAll();
        if (!readsPad)
            world.devices.plugIn({u"Pad"_s, u"/dev/input/event5"_s, u"Permission denied"_s,
                                  platform::TrackpadRemedy::installRule});
        world.session.setReadsTitles(readsTitles);
    }
    void open(int step = 0) {
        view = std::make_unique<OnboardingView>(settings, manager, [this] { ++completions; });
        view->show();
        view->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
        while (view->currentStep() < step)
            view->nextStep();
    }
    QPushButton* button(const QString& text) { return shownButton(*view, text); }
    void press(const QString& text) {
        ASSERT_TRUE(button(text)) << text.toStdString();
        button(text)->setFocus();
        QTest::keyClick(button(text), Qt::Key_Space);
    }
    static QString focused() {
        const auto* focus = qobject_cast<QPushButton*>(QApplication::focusWidget());
        return focus ? focus->text() : QString();
    }
    QStringList buttons() {
        QStringList texts;
        for (const auto* each : view->findChildren<QPushButton*>())
            if (each->isVisible())
                texts << each->text();
        return texts;
    }
    QStringList tags() {
        QStringList texts;
        for (const auto* badge : view->findChildren<controls::Badge*>())
            texts << badge->text();
        return texts;
    }
    bool tells(const QString& meaning) {
        for (const auto* each : view->findChildren<QWidget*>())
            if (each->isVisible() && each->accessibleName() == meaning)
                return true;
        return false;
    }
    QStringList lines() { return world.log.take(Stream::output); }
    QStringList journal() { return world.settings.takeJournal(); }
};

QStringList changes(const QString& to) {
    return {u"PermissionsManager: Accessibility changed to "_s + to,
            u"PermissionsManager: Screen Recording changed to "_s + to};
}

TEST_F(Onboarding, LeadsThroughThreeStepsAndBack) {
    open();
    struct Row {
        QString pressed;
        int step;
        QString title;
        QStringList buttons;
        QString progress;
    };
    const QStringList grants{grantText, grantText, grantText, u"Reveal in Finder"_s,
                             u"Re-check Permissions"_s};
    const QStringList first{u"Skip"_s, u"Next"_s};
    const QStringList second = grants + QStringList{u"Back"_s, u"Skip"_s, u"Next"_s};
    const QStringList last{u"Back"_s, u"Get Started"_s};
    const QString welcome = u"Welcome to Brimlow"_s;
    const QString grant = u"Grant Permissions"_s;
    for (const Row& row : std::vector<Row>{{{}, 0, welcome, first, u"Step 1 of 3"_s},
                                           {u"Next"_s, 1, grant, second, u"Step 2 of 3"_s},
                                           {u"Skip"_s, 2, u"All Set"_s, last, u"Step 3 of 3"_s},
                                           {u"Back"_s, 1, grant, second, u"Step 2 of 3"_s},
                                           {u"Back"_s, 0, welcome, first, u"Step 1 of 3"_s},
                                           {u"Skip"_s, 1, grant, second, u"Step 2 of 3"_s}}) {
        if (!row.pressed.isEmpty())
            press(row.pressed);
        EXPECT_EQ(view->currentStep(), row.step);
        EXPECT_TRUE(shownTexts(*view).contains(row.title));
        EXPECT_EQ(buttons(), row.buttons);
        EXPECT_TRUE(tells(row.progress));
        EXPECT_EQ(focused(), row.buttons.contains(row.pressed) ? row.pressed : row.buttons.last());
    }
    EXPECT_EQ(journal(), QStringList()) << "nothing was asked for";
    EXPECT_FALSE(manager.hasPromptedAccessibility || manager.hasPromptedAppleEvents
                 || manager.hasPromptedScreenRecording);
}

TEST_F(Onboarding, TheKeyboardGoesInReadingOrderAndReturnGoesOn) {
    open(1);
    button(grantText + u": "_s + accessibility)->setFocus();
    for (const QString& expected : buttons()) {
        EXPECT_EQ(focused(), expected);
        QTest::keyClick(view.get(), Qt::Key_Tab);
    }
    QTest::keyClick(view.get(), Qt::Key_Escape);
    EXPECT_TRUE(view->isVisible());
    EXPECT_EQ(view->currentStep(), 1);
    auto* grant = button(grantText + u": "_s + automation);
    grant->setFocus();
    QTest::keyClick(grant, Qt::Key_Return);
    EXPECT_EQ(view->currentStep(), 2);
    EXPECT_EQ(focused(), u"Get Started"_s);
    EXPECT_EQ(journal(), QStringList());
}

TEST_F(Onboarding, ShowsWhatIsGrantedOnBothPages) {
    for (const auto& [pad, titles] :
         {std::pair{false, false}, {true, false}, {false, true}, {true, true}}) {
        setRights(pad, titles);
        open(1);
        EXPECT_EQ(tags(), (QStringList{pad ? u"Granted"_s : u"Required"_s, u"Check in Settings"_s,
                                       titles ? u"Granted"_s : u"Required for Focus Window"_s}));
        const QStringList grants{pad ? reopenText : grantText, grantText,
                                 titles ? reopenText : grantText};
        EXPECT_EQ(buttons().mid(0, 3), grants);
        EXPECT_TRUE(button(grants[0] + u": "_s + accessibility));
        press(u"Next"_s);
        const auto word = [](bool granted) { return granted ? u"Granted"_s : u"Not granted"_s; };
        EXPECT_TRUE(tells(accessibility + u": "_s + word(pad)));
        EXPECT_TRUE(tells(screenRecording + u": "_s + word(titles)));
        EXPECT_TRUE(tells(u"Next step: Open the Tap tab and record a position"_s));
    }
}

TEST_F(Onboarding, ChecksWhenItAppearsAtEachStepAndWhenAsked) {
    setRights(true, true);
    open();
    EXPECT_EQ(lines(), changes(u"true"_s));
    bool granted = true;
    const auto turn = [&] {
        granted = !granted;
        setRights(granted, granted);
        return changes(granted ? u"true"_s : u"false"_s);
    };
    for (const QString& pressed : {u"Next"_s, u"Re-check Permissions"_s, u"Skip"_s, u"Back"_s}) {
        const QStringList expected = turn();
        press(pressed);
        EXPECT_EQ(lines(), expected) << pressed.toStdString();
        EXPECT_EQ(tags()[0], granted ? u"Granted"_s : u"Required"_s);
    }
    press(u"Back"_s);
    view->hide();
    turn();
    view->previousStep();
    EXPECT_EQ(lines(), QStringList()) << "no step before the first";
    view->show();
    EXPECT_EQ(lines().size(), 2);
    manager.startPolling();
    turn();
    world.time.advance(2);
    EXPECT_EQ(tags()[0], granted ? u"Granted"_s : u"Required"_s) << "follows the manager";
}

TEST_F(Onboarding, ThePaneOpensFromTheSecondPress) {
    struct Row {
        QString title;
        QString pane;
        QStringList printed;
    };
    world.session.setTrusted(false);
    open(1);
    lines();
    for (const Row& row :
         std::vector<Row>{{accessibility,
                           u"accessibility"_s,
                           {u"PermissionsManager: AXIsProcessTrustedWithOptions → false"_s}},
                          {automation, u"automation"_s, {}},
                          {screenRecording,
                           u"screen recording"_s,
                           {u"PermissionsManager: CGRequestScreenCaptureAccess → false"_s}}}) {
        const QString grant = grantText + u": "_s + row.title;
        press(grant);
        EXPECT_EQ(journal(), QStringList(u"prompt "_s + row.pane));
        EXPECT_EQ(lines(), row.printed);
        world.time.advance(1);
        EXPECT_EQ(journal(), QStringList());
        for (int again = 0; again < 2; ++again) {
            press(grant);
            EXPECT_EQ(journal(), QStringList(u"open "_s + row.pane));
            EXPECT_EQ(lines(), QStringList());
        }
    }
    EXPECT_FALSE(world.defaults.arrayForKey(PermissionsManager::grantAttemptsKey));
    press(u"Reveal in Finder"_s);
    EXPECT_EQ(journal(), QStringList(u"reveal /usr/bin/brimlow"_s));
}

TEST_F(Onboarding, WhatIsGrantedOpensThePaneAtOnce) {
    setRights(true, true);
    open(1);
    press(reopenText + u": "_s + accessibility);
    press(reopenText + u": "_s + screenRecording);
    EXPECT_EQ(journal(), (QStringList{u"open accessibility"_s, u"open screen recording"_s}));
}

TEST_F(Onboarding, ANewGrantIsShownHalfASecondLaterAlsoWithoutTheView) {
    open(1);
    press(grantText + u": "_s + screenRecording);
    setRights(false, true);
    world.time.advance(0.499);
    EXPECT_EQ(tags()[2], u"Required for Focus Window"_s);
    world.time.advance(0.001);
    EXPECT_EQ(tags()[2], u"Granted"_s);
    EXPECT_EQ(buttons()[2], reopenText);
    manager.checkScreenRecording(); // there is something left to show
    view.reset();
    world.time.advance(1);
    EXPECT_EQ(world.time.pending(), 0U);
}

TEST_F(Onboarding, IsCompletedOnceByTheLastButtonOnly) {
    open(2);
    view.reset();
    EXPECT_FALSE(settings.hasCompletedOnboarding());
    open(2);
    press(u"Get Started"_s);
    EXPECT_TRUE(AppSettings().hasCompletedOnboarding());
    EXPECT_EQ(world.defaults.boolForKey(u"hasCompletedOnboarding"_s), true);
    press(u"Get Started"_s);
    EXPECT_EQ(completions, 1);
    EXPECT_EQ(view->currentStep(), 2);
}

TEST_F(Onboarding, MayBeDestroyedByItsCompletion) {
    for (const auto finish :
         {+[](QPushButton* button) { QTest::keyClick(button, Qt::Key_Return); },
          +[](QPushButton* button) { QTest::mouseClick(button, Qt::LeftButton); }}) {
        view = std::make_unique<OnboardingView>(settings, manager, [this] {
            ++completions;
            view.reset();
        });
        view->show();
        view->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
        view->nextStep();
        view->nextStep();
        finish(button(u"Get Started"_s));
        world.time.run();
        EXPECT_FALSE(view);
    }
    EXPECT_EQ(completions, 2);
    OnboardingView untold(settings, manager, {});
    for (int step = 0; step < OnboardingView::totalSteps; ++step)
        untold.nextStep();
    EXPECT_EQ(untold.currentStep(), 2);
}

} // namespace
} // namespace brimlow::test
