#include "tests/support/Printing.h"
#include "ui/maps/SamplesCanvas.h"
#include "ui/maps/TrackpadMapView.h"
#include "ui/style/ApplicationStyle.h"

#include <QLabel>

#include <gtest/gtest.h>

namespace brimlow::maps {

using namespace Qt::StringLiterals;

namespace {

// The canvas has room for a trackpad of 320 × 200 at (16, 16).
constexpr QSize roomy(352, 232);
constexpr TapSample middle{0.5, 0.5};

QPoint at(const TapSample& position) {
    return pointOn({16, 16, 320, 200}, position).toPoint();
}

QImage drawn(const SamplesCanvas::Content& content, const std::vector<LiveTouch>& touches = {}) {
    SamplesCanvas canvas;
    canvas.resize(roomy);
    canvas.setContent(content);
    canvas.setLiveTouches(touches);
    return canvas.grab().toImage();
}

TEST(SamplesCanvas, DrawsNoAreaWithoutARadius) {
    const QImage without = drawn({.samples = {middle}});
    for (const double radius : {0.0, -0.1, std::nan("")})
        EXPECT_EQ(drawn({.samples = {middle}, .matchRadius = radius}), without) << radius;
    EXPECT_NE(drawn({.samples = {middle}, .matchRadius = 0.1}), without);
    EXPECT_EQ(drawn({.matchRadius = 0.1}), drawn({})) << "there is nothing to be near to";
}

TEST(SamplesCanvas, EverySampleHasItsArea) {
    const QImage picture = drawn({.samples = {{0.3, 0.5}, {0.7, 0.5}}, .matchRadius = 0.1});
    const QColor surface = picture.pixelColor(at({0.45, 0.8}));
    for (const double x : {0.22, 0.38, 0.62, 0.78})
        EXPECT_NE(picture.pixelColor(at({x, 0.5})), surface) << x;
    for (const double x : {0.18, 0.42, 0.58, 0.82})
        EXPECT_EQ(picture.pixelColor(at({x, 0.52})), surface) << x;
}

TEST(SamplesCanvas, TheRingNeedsNoSampleAndFingersAreAboveEverything) {
    const style::Theme& theme = style::currentTheme();
    const QPoint ring = at(middle) + QPoint(12, 0); // the middle of its line is on the left
    EXPECT_EQ(drawn({.lastCaptured = middle}).pixelColor(ring - QPoint(1, 0)), theme.mapRed);
    // A finger whose ring crosses a sample and its ring.
    const LiveTouch finger{1, 0.5 + 14.0 / 320, 0.5};
    const QImage picture =
        drawn({.samples = {middle}, .lastCaptured = middle, .matchRadius = 0.2}, {finger});
    EXPECT_EQ(picture.pixelColor(at(middle)), theme.blue);
    EXPECT_EQ(drawn({}, {finger}).pixelColor(at(middle)), theme.blue);
}

TEST(SamplesCanvas, KeepsItsHeightWhileTheRadiusIsDragged) {
    SamplesCanvas canvas;
    const int height = canvas.heightForWidth(480);
    EXPECT_EQ(height, 232) << "a trackpad of 200 and its edges";
    canvas.setContent({.samples = {{0, 0}}, .matchRadius = 0.3});
    EXPECT_EQ(canvas.heightForWidth(480), height);
}

TEST(TrackpadMapView, TellsInWordsWhatItShows) {
    TrackpadMapView view;
    EXPECT_EQ(view.accessibleDescription(), u"0 samples"_s);
    view.setMatchRadius(0.08);
    view.setSamples({middle});
    view.setLiveTouches({{1, 0.5, 0.5}, {2, 0.6, 0.5}});
    EXPECT_EQ(view.accessibleDescription(),
              u"1 sample, match radius 0.080, 2 fingers on the trackpad"_s);
    const auto* title = view.findChild<QLabel*>();
    EXPECT_TRUE(title->isHidden());
    view.setTitle(u"Map"_s);
    EXPECT_FALSE(title->isHidden());
}

} // namespace
} // namespace brimlow::maps
