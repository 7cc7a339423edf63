#include "tests/profiles/PreferencesOnDisk.h"

#include <set>

namespace brimlow {

using namespace Qt::StringLiterals;
using namespace test;

namespace {

constexpr Start startsAfterCrash[] = {
    {.name = "first after a crash", .leftOver = true},
    {.name = "later after a crash", .saved = true, .leftOver = true},
    {.name = "link after a crash", .saved = true, .linked = true, .leftOver = true},
};

void checkPowerCuts(const Start& start) {
    SCOPED_TRACE(start.name);
    World world(start);
    FailingDisk disk(world.root);
    std::set<QString> found;
    const auto cutPower = [&] {
        disk.forEachPowerCut(world.scratch, [&] { found.insert(profileFound(world.scratch)); });
    };
    disk.before = [&](const FileCall&) {
        cutPower();
        return 0;
    };
    saveProfile(*world.defaults, u"new"_s);
    EXPECT_EQ(found, (std::set{start.saved ? u"old"_s : u"Default"_s, u"new"_s}));
    found.clear();
    cutPower();
    EXPECT_EQ(found, std::set{u"new"_s});
}

} // namespace

TEST(PowerCut, LeavesTheOldOrTheNewContentsAndAfterTheSaveTheNew) {
    for (const Start& start : starts)
        checkPowerCuts(start);
    for (const Start& start : startsAfterCrash)
        checkPowerCuts(start);
}

} // namespace brimlow
