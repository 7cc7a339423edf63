#include "engine/AppSettings.h"

#include "tests/support/TestPlatform.h"

#include <gtest/gtest.h>

namespace brimlow {

using namespace Qt::StringLiterals;

TEST(AppSettings, AreKeptUnderTheirKeysAndSharedByAllObjects) {
    test::TestPlatform world;
    AppSettings writer;
    AppSettings reader;
    int heard = 0;
    auto observing = reader.observeWillChange([&] {
        EXPECT_TRUE(reader.tapEnabled()); // not yet
        ++heard;
    });
    EXPECT_FALSE(reader.hasCompletedOnboarding());
    EXPECT_TRUE(reader.palmRejection());
    EXPECT_EQ(reader.palmRejectionMaxAxis(), 14.0);
    writer.setTapEnabled(false);
    EXPECT_EQ(heard, 1);
    observing = {};
    writer.setHasCompletedOnboarding(true);
    writer.setPalmRejection(false);
    writer.setPalmRejectionMaxAxis(20.5);
    EXPECT_FALSE(reader.tapEnabled());

    const platform::NSUserDefaults relaunched(world.defaults.path(), world.log);
    EXPECT_EQ(relaunched.boolForKey(u"tapEnabled"_s), false);
    EXPECT_EQ(relaunched.boolForKey(u"hasCompletedOnboarding"_s), true);
    EXPECT_EQ(relaunched.boolForKey(u"palmRejection"_s), false);
    EXPECT_EQ(relaunched.doubleForKey(u"palmRejectionMaxAxis"_s), 20.5);
}

} // namespace brimlow
