#include "tests/engine/Engine.h"

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;

const QString match = u"[MATCH] nearest=0.0000 radius=0.1000 (samples=1, tolerance=1.0)"_s;
const QString right = u"x=0.9500 y=0.5000"_s;

/// A binding on the right edge, and the lines that a tap there begins with.
struct Chain : Engine {
    TapPositionMapping binding = bind(u"Right"_s, TapAction::switchDesktopRight, 0.95, 0.5);
    QStringList matched = tapLines(right, {u"'Right': "_s + match});

    void tapRight(TapShape shape = {}) { pad.tap(0.95, 0.5, shape); }
};

TEST_F(Chain, ATapHappensAfterItsDelay) {
    tapRight();
    EXPECT_EQ(log(), matched);
    EXPECT_EQ(coordinator.lastTap.get()->maxSize, 0.5);
    wait(0.0499);
    EXPECT_EQ(world.session.takeJournal(), QStringList());
    wait(0.0001);
    EXPECT_EQ(log(), QStringList(u"AppCoordinator: matched 'Right' → Switch Desktop Right → "
                                 u"Switching right"_s));
    EXPECT_EQ(world.session.takeJournal(), QStringList(u"workspace 1"_s));
}

TEST_F(Chain, TapsTooSoonAfterAHandledOneAreSilent) {
    struct Row {
        double pauseBefore; // from the lift before to this lift
        bool handled;
    };
    // The third tap comes 0.3 s after the first: the second, swallowed one has not put that off.
    tapRight();
    log();
    for (const Row& row : {Row{0.2, false}, Row{0.1, true}, Row{0.299999, false}, Row{0.3, true}}) {
        wait(row.pauseBefore - 0.0625);
        const auto before = coordinator.lastTap.get();
        tapRight({.duration = 0.0625, .size = row.pauseBefore});
        EXPECT_EQ(log().filter(u"TAP"_s).size(), row.handled ? 1 : 0) << row.pauseBefore;
        EXPECT_EQ(coordinator.lastTap.get() == before, !row.handled) << row.pauseBefore;
    }
}

TEST_F(Chain, AClockSetBackSwallowsNoTap) {
    tapRight();
    world.time.setBackWallClock(3600);
    wait(0.3);
    log();
    tapRight();
    EXPECT_EQ(log(), matched);
}

TEST_F(Chain, PalmsAreRejectedStrictlyAboveTheLimit) {
    settings.setPalmRejectionMaxAxis(14.5);
    pad.tap(0.95, 0.5, {.majorAxis = 14.5});
    wait(0.3);
    EXPECT_EQ(log().size(), 3) << "fired";
    pad.tap(0.95, 0.5, {.majorAxis = 14.75});
    wait(0.3);
    EXPECT_EQ(log(), (QStringList{u"AppCoordinator: TAP x=0.9500 y=0.5000 size=0.500 major=14.75 "
                                  u"duration=0.100s"_s,
                                  u"AppCoordinator: REJECT (palm): major=14.75 > 14.50"_s}));
    settings.setPalmRejection(false);
    pad.tap(0.95, 0.5, {.majorAxis = 99});
    wait(0.3);
    EXPECT_EQ(log().size(), 3) << "fired";
}

TEST_F(Chain, UnmatchedTapsAreWorthALineOnceSomethingIsRecorded) {
    pad.tap(0.25, 0.5);
    EXPECT_EQ(log(), tapLines(u"x=0.2500 y=0.5000"_s,
                              {u"'Right': [REJECT] nearest=0.7000 radius=0.1000 (samples=1, "
                               u"tolerance=1.0)"_s})
                         + QStringList(u"AppCoordinator: → no binding matched — tap ignored"_s));
    binding.samples.clear();
    change(binding);
    wait(0.3);
    pad.tap(0.25, 0.5);
    EXPECT_EQ(log(), tapLines(u"x=0.2500 y=0.5000"_s));
    EXPECT_EQ(world.session.takeJournal(), QStringList());
}

TEST_F(Chain, PressureAndActionAreCheckedBeforeTheSwitch) {
    struct Row {
        double minimumPressure;
        TapAction action;
        QString line; // empty: stopped by the switch
    };
    settings.setTapEnabled(false);
    const QString off = u"matched 'Right' but tap detection is OFF — only Toggle Brimlow fires "
                        u"while disabled"_s;
    for (const Row& row : {Row{0.5, TapAction::closeWindow, off},
                           Row{0.501, TapAction::closeWindow,
                               u"matched 'Right' but pressure 0.500 < required 0.501 — ignored"_s},
                           Row{0.501, TapAction::none,
                               u"matched 'Right' but pressure 0.500 < required 0.501 — ignored"_s},
                           Row{0, TapAction::none, u"matched 'Right' but no action set"_s}}) {
        binding.minimumPressure = row.minimumPressure;
        binding.action = row.action;
        change(binding);
        wait(0.3);
        tapRight();
        wait(0.3);
        EXPECT_EQ(log(), matched + QStringList(u"AppCoordinator: "_s + row.line));
    }
    EXPECT_EQ(world.session.takeJournal(), QStringList());
}

TEST_F(Chain, AToggleWorksWhileDetectionIsOffAndNeverReachesTheExecutor) {
    binding.action = TapAction::toggleBrimlow;
    change(binding);
    for (const bool enabled : {false, true}) {
        tapRight();
        wait(0.3);
        EXPECT_EQ(settings.tapEnabled(), enabled);
        EXPECT_EQ(world.log.take(),
                  matched
                      + QStringList(u"AppCoordinator: matched 'Right' → Toggle Brimlow → "
                                    u"tapEnabled="_s
                                    + (enabled ? u"true"_s : u"false"_s)));
    }
}

TEST_F(Chain, AClickIsRequiredWithinHalfASecondAlsoOfTheToggle) {
    struct Row {
        double secondsSinceClick;
        QString rejectedAs; // empty when it fires
    };
    binding.requireClick = true;
    binding.action = TapAction::toggleBrimlow;
    change(binding);
    tapRight();
    EXPECT_EQ(log(), matched
                         + QStringList(u"AppCoordinator: require-click 'Right': no click within "
                                       u"0.50s (last click 63903124800.10s ago) — that was a tap, "
                                       u"not a click — ignored"_s));
    for (const Row& row :
         {Row{0.1, {}}, Row{0.5, {}}, Row{0.500001, u"0.50"_s}, Row{0.7, u"0.70"_s}}) {
        wait(0.3);
        log();
        world.devices.click();
        wait(row.secondsSinceClick - 0.1);
        tapRight();
        wait(0.05);
        QStringList expected(u"AppCoordinator: CLICK detected (left-mouse-down)"_s);
        expected += matched;
        if (row.rejectedAs.isEmpty())
            expected << u"AppCoordinator: matched 'Right' → Toggle Brimlow → tapEnabled="_s
                            + (settings.tapEnabled() ? u"true"_s : u"false"_s);
        else
            expected
                << u"AppCoordinator: require-click 'Right': no click within 0.50s (last click "_s
                       + row.rejectedAs + u"s ago) — that was a tap, not a click — ignored"_s;
        EXPECT_EQ(log(), expected) << row.secondsSinceClick;
    }
}

TEST_F(Chain, WhileRecordingATapIsASampleWhateverItIs) {
    settings.setTapEnabled(false);
    coordinator.recorder.start(1);
    pad.tap(0.95, 0.5, {.majorAxis = 99});
    wait(1);
    tapRight();
    EXPECT_EQ(coordinator.recorder.capturedSamples->size(), 1U);
    wait(1);
    EXPECT_EQ(log().size(), 2) << "one TAP line each, nothing matched";
    EXPECT_EQ(world.session.takeJournal(), QStringList());
}

TEST_F(Chain, NamesAreWrittenAsTheyAre) {
    binding.name = u"100 %s %1 \"quoted\" <b> 👍 ünï"_s;
    binding.action = TapAction::none;
    change(binding);
    tapRight();
    EXPECT_EQ(log().last(),
              u"AppCoordinator: matched '100 %s %1 \"quoted\" <b> 👍 ünï' but no action set"_s);
}

} // namespace
} // namespace brimlow::test
