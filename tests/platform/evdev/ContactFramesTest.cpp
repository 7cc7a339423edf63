#include "platform/linux/evdev/ContactFrames.h"

#include "PadEvents.h"
#include "platform/linux/evdev/PadFeed.h"
#include "tests/support/AllocationCount.h"

#include <gtest/gtest.h>

#include <optional>
#include <utility>

namespace brimlow::platform {

namespace {

class TwoPads : public testing::Test {
protected:
    /// Those since the last call.
    std::string frames() { return std::exchange(text_, {}); }
    std::string framesAfter(std::optional<PadFeed>& pad, const std::string& words) {
        for (const input_event& event : eventsOf(words))
            pad->feed(event);
        return frames();
    }

    ContactIdentities identities_;
    std::string text_;
    ContactFrames frames_{[this, last = 0](auto fingers, double timestamp, auto frame) mutable {
        text_ += (text_.empty() ? "" : " ") + textOf(fingers);
        EXPECT_EQ(frame, ++last);
        for (const MTFinger& finger : fingers)
            EXPECT_TRUE(finger.frame == frame && finger.timestamp == timestamp);
    }};
    std::optional<PadFeed> left_{std::in_place, deviceDescription("synps2-t440"), identities_,
                                 frames_};
    std::optional<PadFeed> right_{std::in_place, deviceDescription("appletouch"), identities_,
                                  frames_};
};

TEST_F(TwoPads, EachFrameListsBothAndAnEmptyOneFollowsTheLastLift) {
    EXPECT_EQ(framesAfter(left_, "id1 ."), "1:3");
    EXPECT_EQ(framesAfter(right_, "T1 F1 ."), "1:4+2:3");
    EXPECT_EQ(framesAfter(left_, "x3000 ."), "1:4+2:4");
    EXPECT_EQ(framesAfter(right_, "T0 F0 ."), "1:4+2:7");
    EXPECT_EQ(framesAfter(left_, "id-1 ."), "1:7 -");
    EXPECT_EQ(framesAfter(left_, "id2 . s1 id3 . id-1 . s0 id-1 ."), "3:3 3:4+4:3 3:4+4:7 3:7 -");
}

TEST_F(TwoPads, AHoveringFingerStaysAfterTheLastLift) {
    EXPECT_EQ(framesAfter(right_, "F1 ."), "1:2");
    EXPECT_EQ(framesAfter(left_, "id1 . id-1 ."), "2:3+1:2 2:7+1:2 1:2");
}

TEST_F(TwoPads, UnpluggingEndsThatPadsContactsWithoutALift) {
    framesAfter(left_, "id1 . s1 id2 .");
    EXPECT_EQ(framesAfter(right_, "T1 F1 ."), "1:4+2:4+3:3");
    left_.reset();
    EXPECT_EQ(frames(), "3:4");
    right_.reset();
    EXPECT_EQ(frames(), "-");
    left_.emplace(deviceDescription("synps2-t440"), identities_, frames_);
    left_.reset(); // untouched
    EXPECT_EQ(frames(), "");
}

TEST(ContactFrames, AllocateNothingOnceThePadsAreKnown) {
    long contacts = 0;
    ContactIdentities identities;
    ContactFrames frames([&](auto fingers, double, std::int32_t) { contacts += fingers.size(); });
    const TrackpadDescription pad = deviceDescription("bcm5974");
    PadFeed one(pad, identities, frames);
    PadFeed other(pad, identities, frames);
    std::string all;
    for (int slot = 0; slot < 16; ++slot)
        all += "s" + std::to_string(slot) + " id" + std::to_string(slot) + " x7 ";
    const auto events = eventsOf(all + ". x9 . ! . " + all + ". s3 id99 . id-1 . ");
    const long before = test::allocationsOfThisThread();
    for (const input_event& event : events) {
        one.feed(event);
        other.feed(event);
    }
    EXPECT_EQ(test::allocationsOfThisThread(), before);
    EXPECT_GT(contacts, 100);
}

} // namespace

} // namespace brimlow::platform
