#include "PadEvents.h"

#include <gtest/gtest.h>

namespace brimlow::platform {

namespace {

struct Reading {
    const char* device;
    const char* events; // of which the first contact of the last frame counts
    double size;
    double major; // mm
};

void PrintTo(const Reading& reading, std::ostream* stream) {
    *stream << reading.device << ": " << reading.events;
}

class Readings : public testing::TestWithParam<Reading> {};

TEST_P(Readings, GiveSizeAndWidth) {
    const Reading& reading = GetParam();
    ContactIdentities identities;
    TouchDecoder decoder(deviceDescription(reading.device), identities);
    framesOf(decoder, reading.events);
    ASSERT_FALSE(decoder.contacts().empty());
    EXPECT_NEAR(decoder.contacts()[0].size, reading.size, 0.005);
    EXPECT_NEAR(decoder.contacts()[0].majorAxis, reading.major, 0.05);
}

INSTANTIATE_TEST_SUITE_P(
    Pressure, Readings,
    testing::Values(Reading{"synps2-t440", "id1 p0 .", 0, 7},
                    Reading{"synps2-t440", "id1 p25 .", 0.096, 7}, // a tenth of the range is 25.5
                    Reading{"synps2-t440", "id1 p26 .", 0.104, 7},
                    Reading{"synps2-t440", "id1 p70 .", 0.483, 7}, // an ordinary tap
                    Reading{"synps2-t440", "id1 p130 .", 0.9996, 7},
                    Reading{"synps2-t440", "id1 p131 .", 1.008, 16},
                    Reading{"synps2-t440", "id1 p255 .", 1.5, 16},
                    Reading{"synps2-t440", "id1 p70 . s1 id2 p140 . s0 x2000 .", 0.483, 7},
                    Reading{"elantech-n500jk", "id1 p8 M326 .", 0.1, 5.26},
                    Reading{"elantech-n500jk", "id1 p16 M326 .", 0.159, 5.26},
                    Reading{"force-pad", "id1 p4000 .", 0.25, 7},
                    Reading{"dell-dll0704", "id1 x5 .", 0.25, 7}));

INSTANTIATE_TEST_SUITE_P(
    PressureOfThePad, Readings,
    testing::Values(Reading{"alps-3fg", "id1 P40 .", 0.575, 7},
                    Reading{"alps-3fg", "id1 P64 .", 0.991, 7},
                    Reading{"alps-3fg", "id1 P65 .", 1.008, 16},
                    // With two fingers it is nobody's.
                    Reading{"alps-3fg", "id1 P90 . s1 id2 .", 0.25, 7},
                    Reading{"alps-3fg", "id1 . s1 id2 . id-1 P40 . P41 .", 0.592, 7},
                    Reading{"bcm5974", "id1 P60 M1000 .", 0.394, 7.15},
                    Reading{"bcm5974", "id1 P60 M1000 . s1 id2 .", 0.477, 7.15},
                    Reading{"appletouch", "P90 T1 F1 .", 0.539, 7},
                    Reading{"appletouch", "P154 T1 F1 .", 1.007, 16},
                    Reading{"synps2-hover", "P70 T1 F1 .", 0.483, 7}));

INSTANTIATE_TEST_SUITE_P(Width, Readings,
                         testing::Values(
                             // Surface units, by the resolution of the pad's width.
                             Reading{"magic-trackpad", "id1 M322 .", 0.467, 7},
                             Reading{"magic-trackpad", "id1 M0 .", 0, 0},
                             Reading{"magic-trackpad", "id1 M1020 .", 1.478, 22.17},
                             // A scale of its own, of which a little more than half is a palm.
                             Reading{"synaptics-rmi4", "id1 p70 M4 .", 0.483, 7.84},
                             Reading{"synaptics-rmi4", "id1 p70 M7 .", 0.483, 13.73},
                             Reading{"synaptics-rmi4", "id1 p70 M8 .", 0.483, 15.69},
                             // One finger over one, two, three traces, and a hand over five.
                             Reading{"elantech-n500jk", "id1 p16 M163 .", 0.159, 0},
                             Reading{"elantech-n500jk", "id1 p16 M489 .", 0.159, 10.52},
                             Reading{"elantech-n500jk", "id1 p16 M815 .", 0.159, 21.03}));

struct Place {
    const char* device;
    const char* events;
    double x, y;           // 0…1
    double right, upwards; // mm
};

class Places : public testing::TestWithParam<Place> {};

TEST_P(Places, AreNormalised) {
    const Place& place = GetParam();
    ContactIdentities identities;
    TouchDecoder decoder(deviceDescription(place.device), identities);
    framesOf(decoder, place.events);
    ASSERT_EQ(decoder.contacts().size(), 1U);
    const MTFinger& finger = decoder.contacts()[0];
    EXPECT_NEAR(finger.normalized.pos.x, place.x, 1e-6);
    EXPECT_NEAR(finger.normalized.pos.y, place.y, 1e-6);
    EXPECT_NEAR(finger.mm.pos.x, place.right, 0.01);
    EXPECT_NEAR(finger.mm.pos.y, place.upwards, 0.01);
}

INSTANTIATE_TEST_SUITE_P(
    Corners, Places,
    testing::Values(Place{"synps2-t440", "id1 x1024 y2024 .", 0, 1, 0, 66.86},
                    Place{"synps2-t440", "id1 x5112 y4832 .", 1, 0, 97.33, 0},
                    Place{"synps2-t440", "id1 x2046 y2726 .", 0.25, 0.75, 24.33, 50.14},
                    Place{"synps2-t440", "id1 x1023 y2023 .", 0, 1, 0, 66.86}, // beyond the edge
                    Place{"synps2-t440", "id1 x9999 y-9999 .", 1, 1, 97.33, 66.86},
                    Place{"bcm5974", "id1 x-4824 y4290 .", 0, 0, 0, 0}, // no resolution
                    Place{"bcm5974", "id1 x0 y2059 .", 0.5, 0.5, 34.5, 25},
                    Place{"appletouch", "X1215 Y0 T1 F1 .", 1, 1, 69, 50}));

TEST(ContactScale, TakesThePadsSizeFromUdevWhereTheDriverKnowsNone) {
    TrackpadDescription pad = deviceDescription("bcm5974");
    pad.sizeHint = PadSize{104, 75};
    EXPECT_DOUBLE_EQ(pad.size().width, 104);
    EXPECT_DOUBLE_EQ(pad.size().height, 75);
    ContactIdentities identities;
    TouchDecoder decoder(pad, identities);
    framesOf(decoder, "id1 M1000 .");
    EXPECT_NEAR(decoder.contacts()[0].majorAxis, 10.78, 0.05);
}

} // namespace

} // namespace brimlow::platform
