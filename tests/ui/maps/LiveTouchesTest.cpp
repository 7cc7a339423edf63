#include "tests/support/Speed.h"
#include "ui/controls/Card.h"
#include "ui/maps/MapCanvas.h"
#include "ui/maps/TrackpadBindingsMap.h"
#include "ui/maps/TrackpadMapView.h"
#include "ui/style/ApplicationStyle.h"
#include "ui/style/Role.h"

#include <QBoxLayout>
#include <QFrame>
#include <QPaintEvent>
#include <QTest>

#include <gtest/gtest.h>

#include <cmath>

namespace brimlow {

using namespace Qt::StringLiterals;
using test::processorMilliseconds;

namespace {

std::vector<TapPositionMapping> tenBindings() {
    std::vector<TapPositionMapping> all(10);
    for (int i = 0; i < 10; ++i)
        all[i] = {.name = u"Binding "_s + QString::number(i),
                  .samples = {{0.1 * i, 0.3 + 0.05 * i}},
                  .explicitMatchRadius = 0.1};
    return all;
}

/// Both maps in a dressed window, and what is painted of them.
class LiveTouches : public testing::Test, public QObject {
protected:
    LiveTouches() {
        style::setRole(&window, style::Role::page);
        auto* rows = new QVBoxLayout(&window);
        auto* card = new controls::Card;
        card->add(&bindings);
        card->add(&samples);
        rows->addWidget(card);
        window.resize(560, 700);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
        QCoreApplication::processEvents();
        bindings.canvas().installEventFilter(this);
        samples.canvas().installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            painted[watched] += static_cast<QPaintEvent*>(event)->region();
        return false;
    }

    std::map<QObject*, QRegion> paintedNow() {
        painted.clear();
        QCoreApplication::processEvents();
        return painted;
    }

    style::ApplicationStyle applicationStyle;
    QFrame window;
    TrackpadBindingsMap bindings{tenBindings()};
    TrackpadMapView samples{{{0.5, 0.5}}, {}, TapSample{0.5, 0.5}, 0.1, u"Map"_s};
    std::map<QObject*, QRegion> painted;
};

TEST_F(LiveTouches, RepaintOnlyWhereTheyWereAndAre) {
    maps::MapCanvas& canvas = samples.canvas();
    const auto surface = maps::surfaceIn(canvas.size(), 200, {});
    const auto around = [&](const TapSample& position) {
        const QPoint centre = maps::pointOn(surface, position).toPoint();
        return QRect(centre - QPoint(16, 16), QSize(32, 32));
    };
    samples.setLiveTouches({{1, 0.2, 0.3}, {2, 0.8, 0.3}});
    EXPECT_EQ(paintedNow()[&canvas], QRegion(around({0.2, 0.3})) + around({0.8, 0.3}));
    samples.setLiveTouches({{1, 0.2, 0.3}, {2, 0.7, 0.6}});
    EXPECT_EQ(paintedNow()[&canvas], QRegion(around({0.8, 0.3})) + around({0.7, 0.6}))
        << "the finger that rests is not painted again";
    samples.setLiveTouches({{2, 0.7, 0.6}});
    EXPECT_EQ(paintedNow()[&canvas], QRegion(around({0.2, 0.3})));
    samples.setLiveTouches({{2, 0.7, 0.6}});
    EXPECT_TRUE(paintedNow().empty());
}

TEST_F(LiveTouches, SettingWhatIsShownAlreadyRepaintsNothing) {
    bindings.setBindings(tenBindings());
    samples.setSamples({{0.5, 0.5}});
    samples.setLastCaptured(TapSample{0.5, 0.5});
    samples.setMatchRadius(0.1);
    EXPECT_TRUE(paintedNow().empty());
    samples.setMatchRadius(0.2);
    EXPECT_EQ(paintedNow()[&samples.canvas()], QRegion(samples.canvas().rect()));
}

TEST_F(LiveTouches, TheMapsFollowTheDesktopsScheme) {
    const auto lightness = [&] {
        return samples.canvas().grab().toImage().pixelColor(200, 180).lightness();
    };
    EXPECT_GT(lightness(), 200);
    applicationStyle.apply({.scheme = style::ColourScheme::dark});
    EXPECT_LT(lightness(), 100);
}

/// Processor time of 125 frames, a second of what a trackpad delivers, from the setter until it is
/// in the window's backing store.
template<typename Map>
double secondOfFiveFingers(Map& map) {
    constexpr int frames = 250;
    const double before = processorMilliseconds();
    for (int frame = 0; frame < frames; ++frame) {
        std::vector<LiveTouch> touches(5);
        for (int id = 0; id < 5; ++id)
            touches[id] = {id, 0.5 + 0.4 * std::sin(0.05 * frame + id),
                           0.5 + 0.4 * std::cos(0.07 * frame + 2 * id)};
        map.setLiveTouches(touches);
        QCoreApplication::processEvents();
    }
    return (processorMilliseconds() - before) / 1000 / frames * 125;
}

TEST_F(LiveTouches, FiveAtThePadsRateCostLittleOfOneCore) {
    for (const auto& [name, seconds] : {std::pair{"bindings", secondOfFiveFingers(bindings)},
                                        std::pair{"samples", secondOfFiveFingers(samples)}}) {
        std::cout << name << ": " << seconds * 100 << " % of one core\n";
        EXPECT_LT(seconds, 0.08) << name;
    }
    EXPECT_GT(painted[&samples.canvas()].rectCount(), 0) << "each frame was really painted";
}

} // namespace
} // namespace brimlow
