#pragma once

#include "tools/recording/PadScript.h"

/// The gestures of the shipped recording, resources/recordings/demo.evemu. Bindings that are to
/// answer to it take their places from here.
namespace brimlow::platform::demo {

struct Touch {
    const char* name;
    PadPoint point;
    double at; // seconds from the recording's start
};

// Each of these comes out as one tap, far enough from the next that its action can be watched.
constexpr Touch rightEdge{"right edge", {0.95, 0.5}, 2.0};
constexpr Touch leftEdge{"left edge", {0.05, 0.5}, 4.5};
constexpr Touch topEdge{"top edge", {0.5, 0.9}, 11.5};
constexpr Touch middle{"middle", {0.5, 0.5}, 14.5};
constexpr Touch upperRight{"upper right", {0.75, 0.75}, 17.0};
constexpr Touch upperLeft{"upper left", {0.25, 0.75}, 20.0};
constexpr Touch lowerLeft{"lower left", {0.25, 0.25}, 23.0};
constexpr Touch topRight{"top right corner", {0.95, 0.95}, 25.5};
constexpr Touch bottomClick{"click at the bottom", {0.5, 0.1}, 28.0}; // pushes the pad down as well
constexpr Touch topLeft{"top left corner", {0.05, 0.95}, 30.5};

// A tap by its length, but with a palm's width.
constexpr Touch palm{"palm", {0.5, 0.3}, 7.0};

// No taps at all.
constexpr Touch drag{"drag", {0.3, 0.4}, 8.0};
constexpr Touch scroll{"two-finger scroll", {0.4, 0.3}, 9.5};

inline PadScript script() {
    return PadScript()
        .tap(rightEdge.point, rightEdge.at)
        .tap(leftEdge.point, leftEdge.at)
        .palm(palm.point, palm.at, 0.2)
        .drag(drag.point, {0.7, 0.6}, drag.at, 0.7)
        .scroll(scroll.point, {0.4, 0.7}, scroll.at, 0.7)
        .tap(topEdge.point, topEdge.at)
        .tap(middle.point, middle.at)
        .tap(upperRight.point, upperRight.at)
        .tap(upperLeft.point, upperLeft.at)
        .tap(lowerLeft.point, lowerLeft.at)
        .tap(topRight.point, topRight.at)
        .click(bottomClick.point, bottomClick.at)
        .tap(topLeft.point, topLeft.at);
}

} // namespace brimlow::platform::demo
