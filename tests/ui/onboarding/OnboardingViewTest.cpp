#include "ui/onboarding/OnboardingView.h"

#include "engine/AppSettings.h"
#include "permissions/PermissionsManager.h"
#include "tests/support/TestPlatform.h"
#include "tests/ui/pickers/Shown.h"
#include "ui/controls/Badge.h"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;

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
    std::function<void()> onComplete = [this] { ++completions; };
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
        view = std::make_unique<OnboardingView>(settings, manager, onComplete);
        view->show();
        view->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
        while (view->currentStep() < step)
            view->nextStep();
    }
    QPushButton* button(const QString& text) { return shownButton(*view, text); }
    void press(const QString& text, Qt::Key key = Qt::Key_Space) {
        ASSERT_TRUE(button(text)) << text.toStdString();
        button(text)->setFocus();
        QTest::keyClick(button(text), key);
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
        const auto all = view->findChildren<QWidget*>();
        return std::ranges::any_of(all, [&](const QWidget* each) {
            return each->isVisible() && each->accessibleName() == meaning;
        });
    }
    QStringList journal() { return world.settings.takeJournal(); }
};

TEST_F(Onboarding, LeadsThroughThreeStepsAndBack) {
    open();
    struct Row {
        QString pressed;
        int step;
        QString title;
        QString focused;
    };
    for (const auto& [pressed, step, title, focus] :
         {Row{u"Next"_s, 1, u"Grant Permissions"_s, u"Next"_s},
          Row{u"Skip"_s, 2, u"All Set"_s, u"Get Started"_s},
          Row{u"Back"_s, 1, u"Grant Permissions"_s, u"Back"_s},
          Row{u"Back"_s, 0, u"Welcome to Brimlow"_s, u"Next"_s}}) {
        press(pressed);
        EXPECT_EQ(view->currentStep(), step);
        EXPECT_TRUE(shownTexts(*view).contains(title));
        EXPECT_TRUE(tells(u"Step %1 of 3"_s.arg(step + 1)));
        EXPECT_EQ(focused(), focus);
        EXPECT_EQ(button(u"Back"_s) != nullptr, step > 0);
        EXPECT_EQ(button(u"Skip"_s) != nullptr, step < 2);
    }
    EXPECT_EQ(journal(), QStringList()) << "nothing was asked for";
}

TEST_F(Onboarding, TheKeyboardGoesInReadingOrderAndReturnGoesOn) {
    open(1);
    button(grantText)->setFocus();
    for (const QString& expected : buttons()) {
        EXPECT_EQ(focused(), expected);
        QTest::keyClick(view.get(), Qt::Key_Tab);
    }
    press(grantText, Qt::Key_Escape);
    EXPECT_TRUE(view->isVisible());
    EXPECT_EQ(view->currentStep(), 1);
    press(grantText, Qt::Key_Return);
    EXPECT_EQ(view->currentStep(), 2);
    EXPECT_EQ(journal(), QStringList());
}

TEST_F(Onboarding, ShowsWhatIsGrantedAndOpensThePaneOfThatAtOnce) {
    for (const bool pad : {true, false}) {
        setRights(pad, !pad);
        open(1);
        EXPECT_EQ(tags(), (QStringList{pad ? u"Granted"_s : u"Required"_s, u"Check in Settings"_s,
                                       pad ? u"Required for Focus Window"_s : u"Granted"_s}));
        press(reopenText + u": "_s + (pad ? accessibility : screenRecording));
        EXPECT_EQ(journal(),
                  QStringList(pad ? u"open accessibility"_s : u"open screen recording"_s));
        press(u"Next"_s);
        EXPECT_TRUE(tells(accessibility + (pad ? u": Granted"_s : u": Not granted"_s)));
        EXPECT_TRUE(tells(screenRecording + (pad ? u": Not granted"_s : u": Granted"_s)));
    }
}

TEST_F(Onboarding, ChecksWhenItAppearsAtEachStepAndWhenAsked) {
    bool granted = true;
    const auto expectSeen = [&](const std::function<void()>& act) {
        setRights(granted, granted);
        act();
        EXPECT_EQ(tags()[0], granted ? u"Granted"_s : u"Required"_s);
        granted = !granted;
    };
    expectSeen([&] { open(); });
    for (const QString& pressed : {u"Next"_s, u"Re-check Permissions"_s, u"Skip"_s, u"Back"_s})
        expectSeen([&] { press(pressed); });
    view->hide();
    expectSeen([&] { view->show(); });
    manager.startPolling();
    expectSeen([&] { world.time.advance(2); });
}

TEST_F(Onboarding, ThePaneOpensFromTheSecondPress) {
    world.session.setTrusted(false);
    open(1);
    for (const auto& [title, pane] :
         {std::pair(accessibility, u"accessibility"_s), std::pair(automation, u"automation"_s),
          std::pair(screenRecording, u"screen recording"_s)}) {
        press(grantText + u": "_s + title);
        world.time.advance(1);
        EXPECT_EQ(journal(), QStringList(u"prompt "_s + pane));
        press(grantText + u": "_s + title);
        EXPECT_EQ(journal(), QStringList(u"open "_s + pane));
    }
    EXPECT_FALSE(world.defaults.arrayForKey(PermissionsManager::grantAttemptsKey));
    press(u"Reveal in Finder"_s);
    EXPECT_EQ(journal(), QStringList(u"reveal /usr/bin/brimlow"_s));
}

TEST_F(Onboarding, IsCompletedOnceByTheLastButtonWhichMayDestroyIt) {
    open(2);
    EXPECT_FALSE(settings.hasCompletedOnboarding());
    press(u"Get Started"_s);
    EXPECT_TRUE(AppSettings().hasCompletedOnboarding());
    press(u"Get Started"_s);
    EXPECT_EQ(completions, 1);

    onComplete = [this] { view.reset(); };
    for (const auto key : {Qt::Key_Return, Qt::Key_Space}) {
        open(2);
        press(u"Get Started"_s, key);
        EXPECT_FALSE(view);
    }
}

} // namespace
} // namespace brimlow::test
