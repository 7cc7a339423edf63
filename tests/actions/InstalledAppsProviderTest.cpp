#include "actions/InstalledAppsProvider.h"

#include "tests/support/TestPlatform.h"

#include <QThreadPool>

#include <gtest/gtest.h>

namespace brimlow::test {
namespace {

using namespace Qt::StringLiterals;

struct InstalledAppsTest : testing::Test {
    void finishScans() {
        QThreadPool::globalInstance()->waitForDone();
        world.time.run();
    }
    QStringList shown() const {
        QStringList lines;
        for (const auto& app : provider->apps.get())
            lines << app.id + u'|' + app.name + u'|' + app.path;
        return lines;
    }

    TestPlatform world;
    std::shared_ptr<InstalledAppsProvider> provider = InstalledAppsProvider::make();
};

TEST_F(InstalledAppsTest, ListsEachApplicationOnceByName) {
    auto& applications = world.applications;
    applications.install({.id = u"chess"_s, .plainName = u"Chess"_s});
    applications.install({.id = u"calc"_s, .name = u"calculator"_s, .plainName = u"Zcalc"_s});
    applications.install({.id = u"both"_s, .name = u"Yours"_s, .plainName = u"Both"_s});
    applications.install({.id = u"both"_s, .plainName = u"both"_s, .userOwned = true});
    applications.install({.id = u"own"_s, .plainName = u"A/B %1 <b>"_s, .userOwned = true});
    applications.install({.id = u"hidden"_s, .plainName = u"Hidden"_s, .listed = false});
    applications.install({.id = {}, .plainName = u"Nobody"_s});
    applications.install({.id = u"unnamed"_s, .name = u"X"_s, .plainName = {}});
    provider->reload();
    finishScans();
    EXPECT_EQ(shown(), (QStringList{u"own|A/B %1 <b>|/home/user/Applications/A:B %1 <b>.app"_s,
                                    u"both|both|/home/user/Applications/both.app"_s,
                                    u"calc|calculator|/Applications/Zcalc.app"_s,
                                    u"chess|Chess|/Applications/Chess.app"_s}));
}

TEST_F(InstalledAppsTest, PublishesTheListBeforeItStopsLoading) {
    world.applications.install({.id = u"plain"_s, .plainName = u"Plain"_s});
    world.applications.install({.id = u"icon"_s, .plainName = u"Icon"_s, .icon = u"icon"_s});
    std::vector<std::pair<bool, std::size_t>> before;
    const auto subscription = provider->observeWillChange(
        [&] { before.emplace_back(provider->isLoading, provider->apps->size()); });
    provider->reload();
    EXPECT_TRUE(provider->isLoading);
    QThreadPool::globalInstance()->waitForDone();
    EXPECT_EQ(provider->apps->size(), 0U);
    world.time.run();
    EXPECT_FALSE(provider->isLoading);
    EXPECT_EQ(before,
              (std::vector<std::pair<bool, std::size_t>>{{false, 0}, {true, 0}, {true, 2}}));
    const auto& apps = provider->apps.get();
    EXPECT_EQ(apps[0].icon, world.applications.image(u"icon"_s, 18));
    EXPECT_EQ(apps[1].icon, std::nullopt);

    world.applications.remove(u"plain"_s);
    provider->reload();
    EXPECT_EQ(apps.size(), 2U) << "the last list stays while a scan runs";
    provider->reload();
    finishScans();
    EXPECT_EQ(before.size(), 3U + 6U) << "every scan publishes";
    EXPECT_EQ(apps.size(), 1U);
}

TEST_F(InstalledAppsTest, AScanKeepsItsOwnerUntilItHasPublished) {
    const std::weak_ptr<InstalledAppsProvider> watched = provider;
    provider->reload();
    provider.reset();
    QThreadPool::globalInstance()->waitForDone();
    EXPECT_FALSE(watched.expired());
    world.time.run();
    EXPECT_TRUE(watched.expired());
}

TEST(InstalledApp, IsItsIdentifier) {
    const InstalledApp app{u"a"_s, u"A"_s, u"/A"_s, {}};
    EXPECT_EQ(app, (InstalledApp{u"a"_s, u"B"_s, u"/B"_s, QImage()}));
    EXPECT_FALSE((app == InstalledApp{u"b"_s, u"A"_s, u"/A"_s, {}}));
    EXPECT_EQ(qHash(app, 7), qHash(InstalledApp{u"a"_s, u"B"_s, {}, {}}, 7));
}

} // namespace
} // namespace brimlow::test
