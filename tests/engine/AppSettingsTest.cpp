#include "engine/AppSettings.h"

#include "tests/support/TestPlatform.h"

#include <gtest/gtest.h>

namespace brimlow {

using namespace Qt::StringLiterals;

TEST(AppSettings, EachPropertyHasItsDefaultAndItsKey) {
    test::TestPlatform world;
    AppSettings settings;
    EXPECT_TRUE(settings.tapEnabled());
    EXPECT_FALSE(settings.hasCompletedOnboarding());
    EXPECT_TRUE(settings.palmRejection());
    EXPECT_EQ(settings.palmRejectionMaxAxis(), 14.0);

    settings.setHasCompletedOnboarding(true);
    settings.setPalmRejection(false);
    settings.setPalmRejectionMaxAxis(20.5);
    EXPECT_EQ(world.defaults.boolForKey(u"hasCompletedOnboarding"_s), true);
    EXPECT_EQ(world.defaults.boolForKey(u"palmRejection"_s), false);
    EXPECT_EQ(world.defaults.doubleForKey(u"palmRejectionMaxAxis"_s), 20.5);
}

TEST(AppSettings, EachObjectSeesAndHearsOfTheOthersWrites) {
    test::TestPlatform world;
    AppSettings writer;
    AppSettings reader;
    int heard = 0;
    const auto observing = reader.observeWillChange([&] {
        EXPECT_TRUE(reader.tapEnabled()); // not yet
        ++heard;
    });
    writer.setTapEnabled(false);
    EXPECT_EQ(heard, 1);
    EXPECT_FALSE(reader.tapEnabled());
    const platform::NSUserDefaults relaunched(world.defaults.path(), world.log);
    EXPECT_EQ(relaunched.boolForKey(u"tapEnabled"_s), false);
}

} // namespace brimlow
