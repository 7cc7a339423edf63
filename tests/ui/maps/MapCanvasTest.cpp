#include "tests/support/Printing.h"
#include "ui/maps/BindingColor.h"
#include "ui/maps/BindingsCanvas.h"
#include "ui/maps/SamplesCanvas.h"
#include "ui/maps/TrackpadBindingsMap.h"
#include "ui/maps/TrackpadMapView.h"
#include "ui/style/ApplicationStyle.h"

#include <QCoreApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QToolTip>

#include <gtest/gtest.h>

namespace brimlow::maps {

using namespace Qt::StringLiterals;

namespace {

// Has room for a trackpad of 320 × 200 at (16, 16).
constexpr QSize roomy(352, 232);
constexpr TapSample middle{0.5, 0.5};

QPoint at(const TapSample& position) {
    return pointOn({16, 16, 320, 200}, position).toPoint();
}

TapPositionMapping binding(std::vector<TapSample> samples, double radius = 0.02,
                           const QString& name = {}) {
    return {.name = name, .samples = std::move(samples), .explicitMatchRadius = radius};
}

QImage drawn(const std::vector<TapPositionMapping>& bindings, const QSize& size = roomy) {
    BindingsCanvas canvas;
    canvas.resize(size);
    canvas.setBindings(bindings);
    return canvas.grab().toImage();
}

QImage drawn(const SamplesCanvas::Content& content, const std::vector<LiveTouch>& touches = {}) {
    SamplesCanvas canvas;
    canvas.resize(roomy);
    canvas.setContent(content);
    canvas.setLiveTouches(touches);
    return canvas.grab().toImage();
}

TEST(BindingsCanvas, ColoursFollowTheProfileAlsoPastUnrecordedBindings) {
    const style::ApplicationStyle applicationStyle;
    std::vector<TapPositionMapping> bindings;
    for (const double x : {0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8, 0.9})
        bindings.push_back(binding({{x, 0.5}}));
    bindings[4].samples.clear();
    const QImage picture = drawn(bindings);
    for (const std::size_t i : {0U, 3U, 5U, 8U})
        EXPECT_EQ(picture.pixelColor(at(bindings[i].samples[0])), BindingColor::at(i)) << i;
}

TEST(BindingsCanvas, AnAreaLiesAroundTheMiddleBelowAllMarkers) {
    const style::ApplicationStyle applicationStyle;
    const QImage one = drawn({binding({{0.3, 0.4}, {0.5, 0.6}}, 0.2)});
    const QColor surface = one.pixelColor(at({0.95, 0.8}));
    for (const TapSample& inside : {TapSample{0.22, 0.5}, {0.4, 0.68}})
        EXPECT_NE(one.pixelColor(at(inside)), surface) << inside.x;
    for (const TapSample& outside : {TapSample{0.18, 0.52}, {0.4, 0.72}, {0.55, 0.65}})
        EXPECT_EQ(one.pixelColor(at(outside)), surface) << outside.x;
    const QImage two = drawn({binding({{0.4, 0.5}}), binding({{0.5, 0.5}}, 0.3)});
    EXPECT_EQ(two.pixelColor(at({0.4, 0.5})), BindingColor::at(0));
}

TEST(BindingsCanvas, LongNamesAreElidedInWhicheverDirectionTheyRun) {
    const style::ApplicationStyle applicationStyle({.textScale = 2});
    // The width of a label, by the colour of its frame.
    const auto width = [](const QString& name) {
        const QImage picture = drawn({binding({middle}, 0, name)});
        std::vector<int> frame;
        for (int x = 0; x < picture.width(); ++x)
            if (picture.pixelColor(x, at(middle).y() + 25) == BindingColor::at(0))
                frame.push_back(x);
        return frame.empty() ? 0 : frame.back() - frame.front() + 1;
    };
    for (const QString& name :
         {u"Somewhat longer than one would like"_s, u"שולחן העבודה"_s.repeated(3)}) {
        EXPECT_LE(width(name), 236) << name.toStdString();
        EXPECT_GT(width(name), 180) << name.toStdString();
    }
    EXPECT_LT(width(u"Left 1"_s), 120);
}

TEST(BindingsCanvas, TellsTheWholeNameOfWhatTheMouseIsOn) {
    const style::ApplicationStyle applicationStyle;
    BindingsCanvas canvas;
    canvas.resize(roomy);
    canvas.setBindings({binding({{0.3, 0.5}}, 0.2, u"First <2> & more"_s),
                        binding({{0.4, 0.5}}, 0.2, u"Second"_s)});
    canvas.show();
    const std::pair<TapSample, QString> rows[]{
        {{0.9, 0.5}, {}},
        {{0.3, 0.5}, u"First &lt;2&gt; &amp; more"_s}, // its marker, in the other's area
        {{0.3, 0.5 - 18.0 / 200}, u"First"_s},         // its label
        {{0.35, 0.6}, u"Second"_s},                    // both areas
        {{0.15, 0.5}, u"First"_s}};
    for (const auto& [position, expected] : rows) {
        QHelpEvent help(QEvent::ToolTip, at(position), canvas.mapToGlobal(at(position)));
        QCoreApplication::sendEvent(&canvas, &help);
        EXPECT_TRUE(QToolTip::text().contains(expected)) << QToolTip::text().toStdString();
        EXPECT_EQ(QToolTip::text().isEmpty(), expected.isEmpty());
    }
}

TEST(BindingsCanvas, SurvivesWhateverAFileHolds) {
    constexpr double endless = std::numeric_limits<double>::infinity();
    std::vector<TapPositionMapping> bindings(300, binding({middle}, 0.1, u"Same"_s));
    bindings.push_back(binding({{1e300, -1e300}}, 1e300));
    bindings.push_back(binding({{1e308, 0}, {1e308, 0}}));
    for (const double radius : {endless, -1.0, std::nan("")})
        bindings.push_back(binding({middle}, radius));
    for (const QSize& size : {roomy, QSize(1, 1), QSize(160, 20)})
        EXPECT_FALSE(drawn(bindings, size).isNull());
}

TEST(SamplesCanvas, DrawsNoAreaWithoutARadius) {
    const QImage without = drawn({.samples = {middle}});
    for (const double radius : {0.0, -0.1, std::nan("")})
        EXPECT_EQ(drawn({.samples = {middle}, .matchRadius = radius}), without) << radius;
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
    const QPoint ring = at(middle) + QPoint(11, 0);
    EXPECT_EQ(drawn({.lastCaptured = middle}).pixelColor(ring), theme.mapRed);
    // A finger whose ring crosses a sample and its ring.
    const LiveTouch finger{1, 0.5 + 14.0 / 320, 0.5};
    const QImage picture =
        drawn({.samples = {middle}, .lastCaptured = middle, .matchRadius = 0.2}, {finger});
    EXPECT_EQ(picture.pixelColor(at(middle)), theme.blue);
}

TEST(SamplesCanvas, KeepsItsHeightWhileTheRadiusIsDragged) {
    SamplesCanvas canvas;
    const int height = canvas.heightForWidth(480);
    EXPECT_EQ(height, 232) << "a trackpad of 200 and its edges";
    canvas.setContent({.samples = {{0, 0}}, .matchRadius = 0.3});
    EXPECT_EQ(canvas.heightForWidth(480), height);
}

TEST(TrackpadMaps, TellInWordsWhatTheyShow) {
    TrackpadBindingsMap map({binding({middle})});
    EXPECT_EQ(map.accessibleName(), u"All bindings on trackpad"_s);
    EXPECT_EQ(map.accessibleDescription(), u"1 binding · 1 recorded"_s);
    map.setBindings({binding({middle}), binding({})});
    map.setLiveTouches({{1, 0.5, 0.5}});
    EXPECT_EQ(map.accessibleDescription(), u"2 bindings · 1 recorded, 1 finger on the trackpad"_s);
    const auto labels = map.findChildren<QLabel*>();
    EXPECT_EQ(labels[0]->text(), map.accessibleName());
    EXPECT_EQ(labels[1]->text(), u"2 bindings · 1 recorded"_s);

    TrackpadMapView view;
    EXPECT_EQ(view.accessibleDescription(), u"0 samples"_s);
    view.setMatchRadius(0.08);
    view.setSamples({middle});
    view.setLiveTouches({{1, 0.5, 0.5}, {2, 0.6, 0.5}});
    EXPECT_EQ(view.accessibleDescription(),
              u"1 sample, match radius 0.080, 2 fingers on the trackpad"_s);
}

} // namespace
} // namespace brimlow::maps
