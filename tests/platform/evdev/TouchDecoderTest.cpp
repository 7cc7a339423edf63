#include "PadEvents.h"

#include <gtest/gtest.h>

#include <random>

namespace brimlow::platform {

namespace {

struct Story {
    const char* what;
    const char* device;
    const char* events;
    const char* frames;
};

constexpr const char* slots = "synps2-t440";
constexpr const char* keys = "appletouch";
constexpr const char* box = "synps2-hover";

const Story stories[] = {
    {"one touch", slots, "s0 id7 x3000 y3000 p60 . x3009 . p70 . id-1 .", "1:3 1:4 1:4 1:7"},
    {"nothing changed", slots, "id7 x3000 y3000 p60 . . x3000 . L1 . L0 . id-1 .", "1:3 1:7"},
    {"what else changed is still there", slots,
     "id7 x3000 . s1 id8 x4000 . x4001 . s0 id-1 . s1 x4002 .", "1:3 1:4+2:3 1:4+2:4 1:7+2:4 2:4"},
    {"one finger replaces another in a frame", slots, "id7 x3000 . id8 x4000 . id-1 .",
     "1:3 1:7+2:3 2:7"},
    {"came and went within a frame", slots, "id7 x3000 id-1 . x3001 .", ""},
    {"values before the announcement", slots, "x3000 y3000 . id7 . id-1 .", "1:3 1:7"},
    {"slots there are none of", slots,
     "s9 id7 x3000 . s-1 id8 . s2 id9 . s1 id10 . s100000 id-1 . s1 id-1 .", "1:3 1:7"},
    {"keys mean nothing", slots, "[ s0 id7 x3000 s0 ] T1 F1 . x3001 . id-1 .", ""},
    {"the last slot", "bcm5974", "s15 id7 x0 . s16 id8 . s15 id-1 .", "1:3 1:7"},
    // Palms and hover.
    {"a finger becomes a palm, and stays one", "synaptics-rmi4",
     "id7 x900 t0 . t2 . t0 x901 . id-1 . id8 x900 . id-1 .", "1:3 - 2:3 2:7"},
    {"comes near, touches, leaves", slots,
     "id7 x3000 d9 . d4 . d4 x3001 . d0 . x3005 . d3 . x3006 . id-1 .",
     "1:2 1:2 1:3 1:4 1:7 1:2 -"},
    // Gaps.
    {"a gap ends every touch", slots,
     "id7 . s1 id8 . ! s0 id-1 x9 . s0 x3000 . id-1 . id9 . id-1 .", "1:3 1:4+2:3 - 3:3 3:7"},
    {"the lift was lost", slots, "id7 x3000 . ! . id8 x3001 . id-1 .", "1:3 - 2:3 2:7"},
    {"resynchronised", slots,
     "id7 . [ s0 id8 x3000 . s1 id9 . ] x3001 . id-1 . s0 id-1 . id10 . id-1 .", "1:3 - 2:3 2:7"},
    {"down when the pad was opened", slots,
     "[ s0 id7 x3000 y3000 s1 id-1 s0 ] x3001 . p9 . id-1 . id8 . id-1 .", "1:3 1:7"},
    {"a gap, told before its resynchronisation", slots, "id7 . ! [ s0 id-1 . ] id8 . id-1 .",
     "1:3 - 2:3 2:7"},
    {"keys: the lift was lost", keys, "X5 Y5 F1 T1 . ! . X6 . T1 F1 X7 . T0 F0 .", "1:3 - 2:3 2:7"},
    // Without slots.
    {"one touch", keys, "X500 Y300 P90 T1 F1 . X501 . T0 F0 P0 .", "1:3 1:4 1:7"},
    {"hovers around it", keys, "X500 F1 . T1 . X501 . T0 . F0 .", "1:2 1:3 1:4 1:7"},
    {"two fingers are no contact, nor is what is left of them", keys,
     "X500 T1 F1 . F0 D1 . X600 . D0 F1 . X601 . T0 F0 . T1 F1 . T0 F0 .",
     "1:3 - 2:3 2:4 - 3:3 3:7"},
    {"slots of a bounding box mean nothing", box,
     "s0 id7 x3000 X3000 Y2000 T1 F1 . s1 id8 x4000 F0 D1 . s1 id-1 s0 id-1 D0 T0 .", "1:3 -"}};

TEST(TouchDecoder, TellsStoriesInFrames) {
    for (const Story& story : stories) {
        ContactIdentities identities;
        TouchDecoder decoder(deviceDescription(story.device), identities);
        EXPECT_EQ(framesOf(decoder, story.events), story.frames) << story.what;
    }
}

TEST(TouchDecoder, KnowsWhereTheFingerLastWas) {
    ContactIdentities identities;
    TouchDecoder decoder(deviceDescription(slots), identities);
    framesOf(decoder, "[ s0 id-1 x1024 y4832 s1 x5112 y2024 s1 ] id7 y2025 .");
    ASSERT_EQ(decoder.contacts().size(), 1U);
    EXPECT_FLOAT_EQ(decoder.contacts()[0].normalized.pos.x, 1) << "before it was opened";
    framesOf(decoder, "x2046 y3428 p80 . x5112 y4832 p0 id-1 .");
    ASSERT_EQ(decoder.contacts().size(), 1U);
    EXPECT_FLOAT_EQ(decoder.contacts()[0].normalized.pos.x, 0.25F) << "before it was lifted";
    EXPECT_FLOAT_EQ(decoder.contacts()[0].normalized.pos.y, 0.5F);
    EXPECT_GT(decoder.contacts()[0].size, 0.4F);
}

TEST(TouchDecoder, SurvivesAnyEvents) {
    std::mt19937 random(1);
    const auto draw = [&](int least, int most) {
        return std::uniform_int_distribution(least, most)(random);
    };
    for (const char* device : {slots, keys, box, "bcm5974"}) {
        ContactIdentities identities;
        TouchDecoder decoder(deviceDescription(device), identities);
        for (int count = 0; count < 50'000; ++count) {
            input_event event{};
            if (draw(0, 5) > 0) {
                event.type = static_cast<std::uint16_t>(draw(0, 4));
                event.code =
                    static_cast<std::uint16_t>(draw(0, 2) ? draw(0x2f, 0x3a) : draw(0, 0x200));
                event.value = draw(0, 3) ? draw(-2, 20) : draw(INT32_MIN, INT32_MAX);
            }
            decoder.feed(event);
            ASSERT_LE(decoder.contacts().size(), decoder.maximumContacts());
            for (const MTFinger& finger : decoder.contacts()) {
                const auto [x, y] = finger.normalized.pos;
                ASSERT_TRUE(x >= 0 && x <= 1 && y >= 0 && y <= 1);
                ASSERT_TRUE(finger.size >= 0 && finger.size <= 1.5F);
            }
        }
    }
}

} // namespace

} // namespace brimlow::platform
