#include "engine/AppCoordinator.h"
#include "tests/support/FakeTrackpad.h"
#include "tests/support/TestPlatform.h"

#include <gtest/gtest.h>

#include <optional>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;
using platform::ButtonNotice;

/// What every tap on the right edge begins with: its own line, and one for the only binding.
const QStringList matched{
    u"AppCoordinator: TAP x=0.9500 y=0.5000 size=0.500 major=7.00 duration=0.100s"_s,
    u"AppCoordinator:   ▸ binding 'Right': [MATCH] nearest=0.0000 radius=0.1000 (samples=1, "
    u"tolerance=1.0)"_s};

/// The real engine on a described world: a fake framework image for the pad, virtual time, the
/// simulated session, and a binding on the right edge.
struct Coordinator : testing::Test {
    TestPlatform world;
    FakeTrackpad pad{world.time};
    AppSettings settings;
    PermissionsManager permissions;
    std::optional<AppCoordinator> coordinator{std::in_place, settings, permissions, 0};
    TapPositionMapping binding{.id = QUuid::createUuid(),
                               .name = u"Right"_s,
                               .action = TapAction::switchDesktopRight,
                               .samples = {{0.95, 0.5}},
                               .explicitMatchRadius = 0.1};

    void SetUp() override {
        coordinator->start();
        coordinator->positionMappings.add(binding);
        world.log.take();
    }

    void change() { coordinator->positionMappings.update(binding); }
    void tapRight(TapShape shape = {}) { pad.tap(0.95, 0.5, shape); }
    void wait(double seconds) { world.time.advance(seconds); }
    /// What standard error got since the last call.
    QStringList log() { return world.log.take(platform::Stream::error); }
};

TEST_F(Coordinator, ATapHappensAfterItsDelay) {
    tapRight();
    EXPECT_EQ(log(), matched);
    EXPECT_EQ(coordinator->lastTap.get()->maxSize, 0.5);
    wait(0.0499);
    EXPECT_EQ(world.session.takeJournal(), QStringList());
    wait(0.0001);
    EXPECT_EQ(log(), QStringList(u"AppCoordinator: matched 'Right' → Switch Desktop Right → "
                                 u"Switching right"_s));
    EXPECT_EQ(world.session.takeJournal(), QStringList(u"workspace 1"_s));
}

TEST_F(Coordinator, TapsTooSoonAfterAHandledOneAreSilent) {
    struct Row {
        double pauseBefore; // from the lift before to this lift
        bool handled;
    };
    // The third tap comes 0.3 s after the first: the second, swallowed one has not put that off.
    tapRight();
    world.time.setBackWallClock(3600);
    for (const Row& row : {Row{0.2, false}, Row{0.1, true}, Row{0.299999, false}, Row{0.3, true}}) {
        log();
        wait(row.pauseBefore - 0.0625);
        const auto before = coordinator->lastTap.get();
        tapRight({.duration = 0.0625, .size = row.pauseBefore});
        EXPECT_EQ(log().filter(u"TAP"_s).size(), row.handled ? 1 : 0) << row.pauseBefore;
        EXPECT_EQ(coordinator->lastTap.get() == before, !row.handled) << row.pauseBefore;
    }
}

TEST_F(Coordinator, PalmsAreRejectedStrictlyAboveTheLimit) {
    settings.setPalmRejectionMaxAxis(14.5);
    tapRight({.majorAxis = 14.5});
    wait(0.3);
    EXPECT_EQ(log().size(), 3) << "fired";
    tapRight({.majorAxis = 14.75});
    wait(0.3);
    EXPECT_EQ(log(), (QStringList{u"AppCoordinator: TAP x=0.9500 y=0.5000 size=0.500 major=14.75 "
                                  u"duration=0.100s"_s,
                                  u"AppCoordinator: REJECT (palm): major=14.75 > 14.50"_s}));
    settings.setPalmRejection(false);
    tapRight({.majorAxis = 99});
    wait(0.3);
    EXPECT_EQ(log().size(), 3) << "fired";
}

TEST_F(Coordinator, UnmatchedTapsAreWorthALineOnceSomethingIsRecorded) {
    const QString tap =
        u"AppCoordinator: TAP x=0.2500 y=0.5000 size=0.500 major=7.00 duration=0.100s"_s;
    binding.name = u"100 %1 'x'"_s;
    change();
    pad.tap(0.25, 0.5);
    EXPECT_EQ(log(), (QStringList{tap,
                                  u"AppCoordinator:   ▸ binding '100 %1 'x'': [REJECT] "
                                  u"nearest=0.7000 radius=0.1000 (samples=1, tolerance=1.0)"_s,
                                  u"AppCoordinator: → no binding matched — tap ignored"_s}));
    binding.samples.clear();
    change();
    wait(0.3);
    pad.tap(0.25, 0.5);
    EXPECT_EQ(log(), QStringList(tap));
}

TEST_F(Coordinator, PressureAndActionAreCheckedBeforeTheSwitch) {
    struct Row {
        double minimumPressure;
        TapAction action;
        QString line;
    };
    settings.setTapEnabled(false);
    for (const Row& row :
         {Row{0.5, TapAction::closeWindow,
              u"but tap detection is OFF — only Toggle Brimlow fires while disabled"_s},
          Row{0.501, TapAction::none, u"but pressure 0.500 < required 0.501 — ignored"_s},
          Row{0, TapAction::none, u"but no action set"_s}}) {
        binding.minimumPressure = row.minimumPressure;
        binding.action = row.action;
        change();
        tapRight();
        wait(0.3);
        EXPECT_EQ(log(), matched + QStringList(u"AppCoordinator: matched 'Right' "_s + row.line));
    }
    EXPECT_EQ(world.session.takeJournal(), QStringList());
}

TEST_F(Coordinator, AClickIsRequiredWithinHalfASecondAlsoOfTheToggle) {
    struct Row {
        double secondsSinceClick;
        QString line;
    };
    const QString click = u"AppCoordinator: CLICK detected (left-mouse-down)"_s;
    const QString toggled = u"AppCoordinator: matched 'Right' → Toggle Brimlow → tapEnabled=%1"_s;
    const QString rejected = u"AppCoordinator: require-click 'Right': no click within 0.50s (last "
                             u"click %1s ago) — that was a tap, not a click — ignored"_s;
    binding.requireClick = true;
    binding.action = TapAction::toggleBrimlow;
    change();
    tapRight();
    EXPECT_EQ(log(), matched + QStringList(rejected.arg(u"63903124800.10"_s)));
    for (const Row& row : {Row{0.1, toggled.arg(u"false"_s)}, Row{0.5, toggled.arg(u"true"_s)},
                           Row{0.500001, rejected.arg(u"0.50"_s)}}) {
        wait(0.3);
        world.devices.click();
        wait(row.secondsSinceClick - 0.1);
        tapRight();
        wait(0.05);
        EXPECT_EQ(world.log.take(), QStringList(click) + matched + QStringList(row.line));
    }
}

TEST_F(Coordinator, WhileRecordingATapIsASampleWhateverItIs) {
    int changes = 0;
    const auto subscription = coordinator->observeWillChange([&] { ++changes; });
    coordinator->recorder.start(1);
    tapRight({.majorAxis = 99});
    wait(1);
    tapRight();
    EXPECT_EQ(coordinator->recorder.capturedSamples->size(), 1U);
    wait(1);
    EXPECT_EQ(log().size(), 2) << "one TAP line each, nothing matched";
    EXPECT_EQ(changes, 2) << "its own lastTap; neither the recorder's changes nor the pad's";
    change();
    EXPECT_EQ(changes, 3) << "the store's are its own";
}

TEST_F(Coordinator, TheClickTapComesBackEachTimeTheSystemDisablesIt) {
    for (const auto notice : {ButtonNotice::eventsLost, ButtonNotice::devicesGone}) {
        world.devices.notify(notice);
        world.devices.click();
        world.time.run();
        EXPECT_EQ(log(),
                  QStringList(u"AppCoordinator: click tap re-enabled after system disable"_s));
        world.devices.click();
        world.time.run();
        EXPECT_EQ(log(), QStringList(u"AppCoordinator: CLICK detected (left-mouse-down)"_s));
    }
}

TEST_F(Coordinator, WhatIsLeftToDoIsDroppedWithIt) {
    tapRight();
    world.devices.click();
    coordinator.reset();
    log();
    wait(1);
    world.devices.click();
    EXPECT_EQ(log(), QStringList());
    EXPECT_EQ(world.session.takeJournal(), QStringList());
}

TEST_F(Coordinator, MayStartAgainWhenAnInputSubsystemHasCome) {
    world.devices.setAvailable(false);
    settings.setTapEnabled(false);
    coordinator.emplace(settings, permissions, 0);
    coordinator->start();
    EXPECT_EQ(log(), (QStringList{u"AppCoordinator: tap detection DISABLED"_s,
                                  u"AppCoordinator: WARN: CGEvent.tapCreate returned nil — click "
                                  u"detection unavailable (require-click bindings won't fire). "
                                  u"Check Accessibility permission."_s}));
    tapRight();
    EXPECT_TRUE(coordinator->lastTap->has_value());

    world.devices.setAvailable(true);
    coordinator->start();
    coordinator->start();
    EXPECT_EQ(world.devices.listenerCount(), 1U);
    int assignments = 0;
    const auto subscription = permissions.observeWillChange([&] { ++assignments; });
    wait(2);
    EXPECT_EQ(assignments, 2) << "one poll, two permissions";
}

} // namespace
} // namespace brimlow::test
