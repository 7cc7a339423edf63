#include "tests/engine/Engine.h"

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;
using platform::ButtonNotice;

TEST_F(Engine, StartMayRunAgain) {
    coordinator.start();
    EXPECT_EQ(log(), QStringList(u"AppCoordinator: tap detection ENABLED"_s));
    EXPECT_EQ(world.devices.listenerCount(), 1U);
    int assignments = 0;
    const auto subscription = permissions.observeWillChange([&] { ++assignments; });
    wait(2);
    EXPECT_EQ(assignments, 2) << "one poll, two permissions";
}

TEST_F(Engine, TheClickTapComesBackEachTimeTheSystemDisablesIt) {
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

TEST_F(Engine, ChangesOfTheStoreAreItsOwn) {
    int changes = 0;
    const auto subscription = coordinator.observeWillChange([&] { ++changes; });
    bind(u"One"_s, TapAction::none, 0, 0);
    EXPECT_EQ(changes, 1);
    coordinator.recorder.start(0);
    pad.tap(0.5, 0.5);
    EXPECT_EQ(changes, 2) << "its own lastTap; neither the recorder's changes nor the pad's";
}

TEST_F(Engine, PermissionsArePolledEveryTwoSeconds) {
    EXPECT_TRUE(permissions.accessibilityGranted);
    world.session.setTrusted(false);
    wait(1.999);
    EXPECT_EQ(world.log.take(), QStringList());
    wait(0.001);
    EXPECT_EQ(world.log.take(),
              (QStringList{u"PermissionsManager: Accessibility changed to false"_s,
                           u"PermissionsManager: Screen Recording changed to false"_s}));
    world.session.setTrusted(true);
    world.devices.plugIn({u"Pad"_s, u"/dev/input/event5"_s, u"Permission denied"_s});
    wait(2);
    EXPECT_EQ(world.log.take(),
              QStringList(u"PermissionsManager: Screen Recording changed to true"_s));
    world.devices.unplugAll();
    wait(2);
    EXPECT_TRUE(permissions.accessibilityGranted);
}

TEST(Coordinator, WithoutAnInputSubsystemOnlyClicksAreMissing) {
    TestPlatform world;
    world.devices.setAvailable(false);
    FakeTrackpad pad(world.time);
    AppSettings settings;
    settings.setTapEnabled(false);
    PermissionsManager permissions;
    AppCoordinator coordinator(settings, permissions, 0);
    coordinator.start();
    EXPECT_EQ(world.log.take(platform::Stream::error),
              (QStringList{u"AppCoordinator: tap detection DISABLED"_s,
                           u"AppCoordinator: WARN: CGEvent.tapCreate returned nil — click "
                           u"detection unavailable (require-click bindings won't fire). Check "
                           u"Accessibility permission."_s}));
    pad.tap(0.5, 0.5);
    EXPECT_TRUE(coordinator.lastTap->has_value());
}

TEST(Coordinator, WhatIsLeftToDoIsDroppedWithIt) {
    TestPlatform world;
    FakeTrackpad pad(world.time);
    AppSettings settings;
    PermissionsManager permissions;
    auto coordinator = std::make_unique<AppCoordinator>(settings, permissions, 10);
    auto binding = coordinator->positionMappings.activeProfile()->bindings.front();
    binding.action = TapAction::switchDesktopRight;
    coordinator->positionMappings.update(binding);
    coordinator->start();
    pad.tap(binding.samples[0].x, binding.samples[0].y);
    world.devices.click();
    coordinator.reset();
    world.log.take();
    world.time.advance(1);
    world.devices.click();
    EXPECT_EQ(world.log.take(), QStringList());
    EXPECT_EQ(world.session.takeJournal(), QStringList());
}

} // namespace
} // namespace brimlow::test
