#include "ui/maps/LabelPlacing.h"
#include "ui/maps/PadGeometry.h"

#include <gtest/gtest.h>

#include <limits>

namespace brimlow::maps {
namespace {

constexpr QRectF surface(10, 20, 320, 200);
constexpr double infinite = std::numeric_limits<double>::infinity();

TEST(PadGeometry, YPointsUpwardsAndARadiusIsAnEllipse) {
    EXPECT_EQ(pointOn(surface, {0.25, 0.1}), QPointF(90, 200));
    EXPECT_EQ(areaOn(surface, {0.5, 0.5}, 0.1), QRectF(138, 100, 64, 40));
    EXPECT_TRUE(areaOn(surface, {0, 0}, infinite).contains(surface));
    EXPECT_TRUE(qIsFinite(areaOn(surface, {1e300, -1e300}, 1e300).width()));
    EXPECT_FALSE(isDrawable({std::numeric_limits<double>::quiet_NaN(), 0}));
    EXPECT_FALSE(isDrawable({0, -infinite}));
}

/// What is drawn in which room, and the surface that comes of it.
struct Fit {
    const char* name;
    std::vector<Footprint> footprints;
    QSizeF room;
    QRectF surface;
};

TEST(PadGeometry, TheSurfaceLeavesRoomForWhatSticksOut) {
    const std::vector<Footprint> bothEdges{{{0, 0.5}, 0.1}, {{1, 0.5}, 0.1}};
    const QMarginsF label(60, 9, 60, 25);
    for (const auto& [name, footprints, room, expected] :
         {Fit{"narrow", {}, {192, 300}, {16, 100, 160, 100}},
          Fit{"areas without room", bothEdges, {386, 272}, {33, 36, 320, 200}},
          Fit{"a label below", {{{0.5, 0}, 0, label}}, {600, 281}, {108, 16, 384, 240}},
          Fit{"one side only", {{{1, 0.5}, 0.2}}, {480, 272}, {18, 16, 384, 240}},
          Fit{"no room at all", {}, {10, 10}, {-19, -10, 48, 30}}}) {
        const QRectF made = surfaceIn(room, 240, footprints);
        EXPECT_EQ(made, expected) << name << ": " << made.x() << ' ' << made.y() << ' '
                                  << made.width() << ' ' << made.height();
    }
}

TEST(PadGeometry, NothingIsClippedHoweverItLies) {
    for (const double radius : {0.03, 0.3})
        for (const TapSample& corner : {TapSample{0, 0}, {1, 0}, {0, 1}, {0.97, 0.5}})
            for (const double width : {200.0, 510.0}) {
                const std::vector<Footprint> all{{corner, radius, {60, 9, 60, 25}}};
                const QRectF room(0, 0, width, heightFor(width, 240, all));
                const QRectF made = surfaceIn(room.size(), 240, all);
                EXPECT_TRUE(room.contains(areaOn(made, corner, radius))) << radius << ' ' << width;
                EXPECT_TRUE(room.contains(
                    QRectF(pointOn(made, corner), QSizeF(0, 0)).marginsAdded(all[0].mark)));
            }
}

TEST(PadGeometry, AnAreaLargerThanTheTrackpadDoesNotShrinkItToNothing) {
    for (const double radius : {2.0, 1e9, infinite}) {
        const std::vector<Footprint> all{{{0.5, 0.5}, radius}, {{1e9, -1e9}, radius}};
        EXPECT_GE(surfaceIn({512, 400}, 240, all).width(), 240) << radius;
        EXPECT_LE(heightFor(512, 240, all), 400) << radius;
    }
}

struct Placing {
    const char* name;
    std::vector<Labelled> labels;
    std::vector<double> slides; // from below the marker
};

TEST(LabelPlacing, SlidesSidewaysToWhereNothingIsCovered) {
    constexpr QSizeF label(40, 16);
    for (const auto& [name, labels, slides] :
         {Placing{"close", {{{100, 50}, label}, {{136, 50}, label}}, {0, 6}},
          Placing{"to the left", {{{140, 50}, label}, {{102, 50}, label}}, {0, -4}},
          Placing{"foreign marker", {{{100, 50}, label}, {{110, 66}, {}}}, {-20, 0}},
          Placing{"at most half a width and 6", {{{100, 50}, label}, {{100, 50}, label}}, {0, 26}},
          Placing{"bounds", {{{30, 50}, label}, {{40, 66}, {}}}, {-10, 0}}}) {
        const auto placed = placeLabels(labels, {0, 0, 300, 300});
        for (std::size_t i = 0; i < labels.size(); ++i) {
            const double moved = placed[i].center().x() - labels[i].marker.x();
            EXPECT_EQ(moved, slides[i]) << name << ", label " << i;
        }
    }
    EXPECT_EQ(placeLabels({{{100, 50}, {40, 16}}}, {0, 0, 300, 300})[0], QRectF(80, 58, 40, 16));
    EXPECT_EQ(labelDrop(28), 22) << "large text is clear of the marker";
}

} // namespace
} // namespace brimlow::maps
