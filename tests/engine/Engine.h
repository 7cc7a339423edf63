#pragma once

#include "engine/AppCoordinator.h"
#include "tests/support/FakeTrackpad.h"
#include "tests/support/TestPlatform.h"

#include <gtest/gtest.h>

namespace brimlow::test {

/// The real engine on a described world: a fake framework image for the pad, virtual time, the
/// simulated session. No bindings to begin with. Each test ends by saying what the log holds.
struct Engine : testing::Test {
    TestPlatform world;
    FakeTrackpad pad{world.time};
    AppSettings settings;
    PermissionsManager permissions;
    AppCoordinator coordinator{settings, permissions, 0};

    void SetUp() override {
        coordinator.start();
        world.log.take();
    }

    /// Adds a binding of one sample at (x, y) with a fixed radius of 0.1.
    TapPositionMapping bind(const QString& name, TapAction action, double x, double y);
    void change(const TapPositionMapping& binding);

    /// What standard error got since the last call.
    QStringList log() { return world.log.take(platform::Stream::error); }
    /// The lines every tap at (x, y) of the usual shape begins with: its own, then one for each
    /// binding.
    static QStringList tapLines(const QString& position, const QStringList& diagnoses = {});
    void wait(double seconds) { world.time.advance(seconds); }
};

} // namespace brimlow::test
