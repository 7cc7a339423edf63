#include "ui/general/GeneralSettingsView.h"

#include "tests/support/TestPlatform.h"
#include "tests/ui/pickers/Shown.h"
#include "ui/controls/Switch.h"

#include <QSlider>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;

struct General : testing::Test {
    TestPlatform world;
    AppSettings settings;
    PermissionsManager permissions;
    AppCoordinator coordinator{settings, permissions, 10};
    std::unique_ptr<GeneralSettingsView> view;

    void open() {
        view = std::make_unique<GeneralSettingsView>(settings, coordinator);
        view->show();
        view->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(view.get()));
    }
    void tap(double majorAxis) {
        coordinator.lastTap = TapInfo{.maxMajorAxis = majorAxis};
        world.time.run();
    }
    bool shows(const QString& text) const { return shownTexts(*view).contains(text); }
    template<typename Widget>
    Widget* named(const QString& name) {
        for (auto* each : view->findChildren<Widget*>())
            if (each->accessibleName() == name)
                return each;
        return nullptr;
    }
    void press(const QString& name) {
        QTest::keyClick(named<controls::Switch>(name), Qt::Key_Space);
        world.time.run();
    }
    QSlider* slider() { return named<QSlider>(u"Treat taps wider than this as palms"_s); }
};

TEST_F(General, EachSwitchIsItsSettingAndFollowsIt) {
    struct Row {
        QString name;
        bool (AppSettings::*get)() const;
        void (AppSettings::*set)(bool);
    };
    const std::vector<Row> rows{
        {u"Enable Tap Detection"_s, &AppSettings::tapEnabled, &AppSettings::setTapEnabled},
        {u"Ignore palm-sized taps"_s, &AppSettings::palmRejection, &AppSettings::setPalmRejection},
        {u"Mark onboarding as complete"_s, &AppSettings::hasCompletedOnboarding,
         &AppSettings::setHasCompletedOnboarding},
    };
    open();
    for (const auto& [name, get, set] : rows) {
        SCOPED_TRACE(name.toStdString());
        const bool before = (settings.*get)();
        EXPECT_EQ(named<controls::Switch>(name)->isChecked(), before);
        press(name);
        EXPECT_EQ((settings.*get)(), !before);
        AppSettings other;
        (other.*set)(before);
        world.time.run();
        EXPECT_EQ(named<controls::Switch>(name)->isChecked(), before);
    }
}

TEST_F(General, WithoutPalmRejectionTheThresholdIsKeptOutOfSight) {
    settings.setPalmRejectionMaxAxis(11.5);
    open();
    press(u"Ignore palm-sized taps"_s);
    EXPECT_FALSE(slider()->isVisible());
    EXPECT_FALSE(shows(u"Stricter — fingertip only"_s));
    press(u"Ignore palm-sized taps"_s);
    EXPECT_TRUE(slider()->isVisible());
    EXPECT_EQ(settings.palmRejectionMaxAxis(), 11.5);
}

TEST_F(General, TheReadoutFollowsTheTapsAndTheSlider) {
    settings.setPalmRejectionMaxAxis(14);
    open();
    EXPECT_TRUE(shows(u"Tap the trackpad anywhere — your tap's size will show here so you can "
                      u"compare it to the slider."_s));
    struct Row {
        double axis;
        QString size;
        bool allowed;
    };
    for (const auto& [axis, size, allowed] : std::vector<Row>{
             {14, u"14.0"_s, true}, {14.01, u"14.0"_s, false}, {9.25, u"9.2"_s, true}}) {
        tap(axis);
        EXPECT_TRUE(shows(size));
        EXPECT_EQ(shows(u"→ allowed (below slider)"_s), allowed) << axis;
        EXPECT_EQ(shows(u"→ rejected (above slider)"_s), !allowed) << axis;
    }
    for (int step = 0; step < 10; ++step)
        QTest::keyClick(slider(), Qt::Key_Left);
    world.time.run();
    EXPECT_EQ(settings.palmRejectionMaxAxis(), 9);
    EXPECT_TRUE(shows(u"→ rejected (above slider)"_s));
}

TEST_F(General, TheSliderEndsAtItsLimitsAndClampsNothingThatIsStored) {
    settings.setPalmRejectionMaxAxis(40);
    open();
    EXPECT_TRUE(shows(u"40"_s));
    EXPECT_EQ(settings.palmRejectionMaxAxis(), 40);
    QWheelEvent turn({5, 5}, slider()->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(slider(), &turn);
    EXPECT_EQ(settings.palmRejectionMaxAxis(), 40) << "the page scrolls, not the slider";

    QTest::keyClick(slider(), Qt::Key_Left);
    EXPECT_EQ(settings.palmRejectionMaxAxis(), 24.5);
    world.time.run();
    EXPECT_TRUE(shows(u"24"_s)) << "a tie goes to the even number";
    QTest::keyClick(slider(), Qt::Key_Home);
    EXPECT_EQ(settings.palmRejectionMaxAxis(), 8);
    QTest::keyClick(slider(), Qt::Key_End);
    EXPECT_EQ(settings.palmRejectionMaxAxis(), 25);
}

} // namespace
} // namespace brimlow::test
