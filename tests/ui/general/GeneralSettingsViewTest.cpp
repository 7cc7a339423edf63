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
    GeneralSettingsView view{settings, coordinator};
    QSlider* slider = view.findChild<QSlider*>();

    General() { view.show(); }

    bool shows(const QString& text) {
        world.time.run();
        return shownTexts(view).contains(text);
    }
    controls::Switch* toggle(const QString& name) {
        world.time.run();
        for (auto* each : view.findChildren<controls::Switch*>())
            if (each->accessibleName() == name)
                return each;
        return nullptr;
    }
    void press(const QString& name) { QTest::keyClick(toggle(name), Qt::Key_Space); }
};

TEST_F(General, EachSwitchIsItsSettingAndFollowsIt) {
    struct Row {
        QString name;
        bool (AppSettings::*get)() const;
        void (AppSettings::*set)(bool);
    };
    for (const auto& [name, get, set] :
         {Row{u"Enable Tap Detection"_s, &AppSettings::tapEnabled, &AppSettings::setTapEnabled},
          Row{u"Ignore palm-sized taps"_s, &AppSettings::palmRejection,
              &AppSettings::setPalmRejection},
          Row{u"Mark onboarding as complete"_s, &AppSettings::hasCompletedOnboarding,
              &AppSettings::setHasCompletedOnboarding}}) {
        const bool before = (settings.*get)();
        EXPECT_EQ(toggle(name)->isChecked(), before) << name.toStdString();
        press(name);
        EXPECT_EQ((settings.*get)(), !before) << name.toStdString();
        (settings.*set)(before);
        EXPECT_EQ(toggle(name)->isChecked(), before) << name.toStdString();
    }
}

TEST_F(General, ATapAsWideAsTheSliderSaysIsAllowed) {
    settings.setPalmRejectionMaxAxis(14);
    EXPECT_TRUE(shows(u"Tap the trackpad anywhere — your tap's size will show here so you can "
                      u"compare it to the slider."_s));
    for (const double axis : {14.0, 14.01}) {
        coordinator.lastTap = TapInfo{.maxMajorAxis = axis};
        EXPECT_TRUE(shows(u"14.0"_s));
        EXPECT_EQ(shows(u"→ allowed (below slider)"_s), axis == 14);
        EXPECT_EQ(shows(u"→ rejected (above slider)"_s), axis > 14);
    }
}

TEST_F(General, TheThresholdIsKeptUntilTheSliderIsMoved) {
    settings.setPalmRejectionMaxAxis(40); // beyond what the slider reaches
    EXPECT_TRUE(shows(u"40"_s));
    QWheelEvent turn({5, 5}, slider->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(slider, &turn); // scrolls the page
    for (const bool inSight : {false, true}) {
        press(u"Ignore palm-sized taps"_s);
        EXPECT_EQ(shows(u"Stricter — fingertip only"_s), inSight);
    }
    EXPECT_EQ(settings.palmRejectionMaxAxis(), 40);
    QTest::keyClick(slider, Qt::Key_Left);
    EXPECT_EQ(settings.palmRejectionMaxAxis(), 24.5);
}

} // namespace
} // namespace brimlow::test
