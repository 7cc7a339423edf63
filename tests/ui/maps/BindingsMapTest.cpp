#include "tests/support/Printing.h"
#include "ui/maps/BindingColor.h"
#include "ui/maps/BindingsCanvas.h"
#include "ui/maps/TrackpadBindingsMap.h"

#include <QCoreApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QToolTip>

#include <gtest/gtest.h>

namespace brimlow::maps {

using namespace Qt::StringLiterals;

namespace {

// The canvas has room for a trackpad of 384 × 240 at (16, 16).
constexpr QSize roomy(416, 272);

QPoint at(const TapSample& position) {
    return pointOn({16, 16, 384, 240}, position).toPoint();
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

TEST(BindingsCanvas, ColoursFollowTheProfileAlsoPastUnrecordedBindings) {
    const style::ApplicationStyle applicationStyle;
    std::vector<TapPositionMapping> bindings(10);
    for (std::size_t i = 0; i < 10; ++i)
        bindings[i] = binding({{0.05 + 0.1 * static_cast<double>(i), 0.5}});
    bindings[4].samples.clear();
    const QImage picture = drawn(bindings);
    for (const std::size_t i : {0U, 3U, 5U, 8U, 9U})
        EXPECT_EQ(picture.pixelColor(at(bindings[i].samples[0])), BindingColor::at(i)) << i;
}

TEST(BindingsCanvas, AnAreaLiesAroundTheMiddleBelowAllMarkers) {
    const style::ApplicationStyle applicationStyle;
    const QImage one = drawn({binding({{0.3, 0.4}, {0.5, 0.6}}, 0.2)});
    const QColor surface = one.pixelColor(at({0.95, 0.8}));
    for (const TapSample& inside : {TapSample{0.22, 0.5}, {0.4, 0.68}})
        EXPECT_NE(one.pixelColor(at(inside)), surface) << inside.x;
    for (const TapSample& outside : {TapSample{0.18, 0.5}, {0.4, 0.72}, {0.55, 0.65}})
        EXPECT_EQ(one.pixelColor(at(outside)), surface) << outside.x;
    const QImage two = drawn({binding({{0.4, 0.5}}), binding({{0.5, 0.5}}, 0.3)});
    EXPECT_EQ(two.pixelColor(at({0.4, 0.5})), BindingColor::at(0));
}

TEST(BindingsCanvas, LongNamesAreElidedInWhicheverDirectionTheyRun) {
    const style::ApplicationStyle applicationStyle({.textScale = 2});
    // The width of a label, by the colour of its frame.
    const auto width = [](const QString& name) {
        const QImage picture = drawn({binding({{0.5, 0.5}}, 0, name)});
        std::vector<int> frame;
        for (int x = 0; x < picture.width(); ++x)
            if (picture.pixelColor(x, at({0.5, 0.5}).y() + 25) == BindingColor::at(0))
                frame.push_back(x);
        return frame.empty() ? 0 : frame.back() - frame.front() + 1;
    };
    for (const QString& name : {u"Somewhat longer than one would like"_s,
                                u"שולחן העבודה"_s.repeated(3), u"two\nlines are one here"_s}) {
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
        {{0.3, 0.5 - 18.0 / 240}, u"First"_s},         // its label
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
    std::vector<TapPositionMapping> bindings{
        binding({{1e300, -1e300}}, 1e300),   binding({{1e308, 0}, {1e308, 0}}, 0.1),
        binding({{0.5, 0.5}}, endless),      binding({{0.5, 0.5}}, -1),
        binding({{0.5, 0.5}}, std::nan("")),
    };
    for (int i = 0; i < 300; ++i)
        bindings.push_back(binding({{0.5, 0.5}}, 0.1, u"Same"_s));
    for (const QSize& size : {roomy, QSize(1, 1), QSize(160, 20)})
        EXPECT_FALSE(drawn(bindings, size).isNull());
}

TEST(TrackpadBindingsMap, TellsInWordsWhatItShows) {
    const auto recorded = binding({{0.5, 0.5}});
    TrackpadBindingsMap map({recorded});
    EXPECT_EQ(map.accessibleName(), u"All bindings on trackpad"_s);
    EXPECT_EQ(map.accessibleDescription(), u"1 binding · 1 recorded"_s);
    map.setBindings({recorded, binding({})});
    map.setLiveTouches({{1, 0.5, 0.5}});
    EXPECT_EQ(map.accessibleDescription(), u"2 bindings · 1 recorded, 1 finger on the trackpad"_s);
    const auto labels = map.findChildren<QLabel*>();
    EXPECT_EQ(labels[0]->text(), map.accessibleName());
    EXPECT_EQ(labels[1]->text(), u"2 bindings · 1 recorded"_s);
}

} // namespace
} // namespace brimlow::maps
