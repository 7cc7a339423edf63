#include "PadEvents.h"

#include <gtest/gtest.h>

namespace brimlow::platform {

namespace {

MTFinger fingerAfter(const TrackpadDescription& pad, const char* events) {
    ContactIdentities identities;
    TouchDecoder decoder(pad, identities);
    framesOf(decoder, events);
    return decoder.contacts().empty() ? MTFinger() : decoder.contacts()[0];
}

TEST(ContactScale, GivesSizeAndWidth) {
    struct Reading {
        const char* device;
        const char* events;
        double size;
        double major; // mm
    };
    const Reading readings[] = {
        // The contact's pressure.
        {"synps2-t440", "id1 p26 .", 0.104, 7}, // a tenth of the range is 25.5
        {"synps2-t440", "id1 p130 .", 0.9996, 7},
        {"synps2-t440", "id1 p131 .", 1.008, 16},
        {"synps2-t440", "id1 p255 .", 1.5, 16},
        {"synps2-t440", "id1 p70 . s1 id2 p140 . s0 x2000 .", 0.483, 7},
        {"force-pad", "id1 p4000 .", 0.25, 7},
        {"dell-dll0704", "id1 x5 .", 0.25, 7},
        // The pad's pressure, which with two fingers is nobody's.
        {"alps-3fg", "id1 P65 .", 1.008, 16},
        {"alps-3fg", "id1 P90 . s1 id2 .", 0.25, 7},
        {"alps-3fg", "id1 . s1 id2 . id-1 P40 . P41 .", 0.592, 7},
        {"bcm5974", "id1 P60 M1000 . s1 id2 .", 0.477, 7.15},
        {"appletouch", "P154 T1 F1 .", 1.007, 16},
        // Width in surface units, by the resolution of the pad's width.
        {"magic-trackpad", "id1 M1020 .", 1.478, 22.17},
        // A scale of its own, of which a little more than half is a palm.
        {"synaptics-rmi4", "id1 p70 M8 .", 0.483, 15.69},
        // One finger over one trace, and a hand over five.
        {"elantech-n500jk", "id1 p16 M163 .", 0.159, 0},
        {"elantech-n500jk", "id1 p16 M815 .", 0.159, 21.03}};
    for (const auto& [device, events, size, major] : readings) {
        const MTFinger finger = fingerAfter(deviceDescription(device), events);
        EXPECT_NEAR(finger.size, size, 0.005) << device << ' ' << events;
        EXPECT_NEAR(finger.majorAxis, major, 0.05) << device << ' ' << events;
    }
}

TEST(ContactScale, NormalisesPlaces) {
    const struct {
        const char* device;
        const char* events;
        double x, y;           // 0…1
        double right, upwards; // mm
    } places[] = {{"synps2-t440", "id1 x2046 y2726 .", 0.25, 0.75, 24.33, 50.14},
                  {"synps2-t440", "id1 x9999 y-9999 .", 1, 1, 97.33, 66.86},
                  {"bcm5974", "id1 x0 y2059 .", 0.5, 0.5, 34.5, 25}, // no resolution
                  {"appletouch", "X1215 Y0 T1 F1 .", 1, 1, 69, 50}};
    for (const auto& place : places) {
        const MTFinger finger = fingerAfter(deviceDescription(place.device), place.events);
        EXPECT_NEAR(finger.normalized.pos.x, place.x, 1e-6) << place.events;
        EXPECT_NEAR(finger.normalized.pos.y, place.y, 1e-6) << place.events;
        EXPECT_NEAR(finger.mm.pos.x, place.right, 0.01) << place.events;
        EXPECT_NEAR(finger.mm.pos.y, place.upwards, 0.01) << place.events;
    }
}

TEST(ContactScale, TakesThePadsSizeFromUdevWhereTheDriverKnowsNone) {
    TrackpadDescription pad = deviceDescription("bcm5974");
    pad.sizeHint = PadSize{104, 75};
    EXPECT_DOUBLE_EQ(pad.size().width, 104);
    EXPECT_DOUBLE_EQ(pad.size().height, 75);
    EXPECT_NEAR(fingerAfter(pad, "id1 M1000 .").majorAxis, 10.78, 0.05);
}

} // namespace

} // namespace brimlow::platform
