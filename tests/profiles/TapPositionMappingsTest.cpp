#include "profiles/TapPositionMappings.h"

#include "tests/profiles/Json.h"
#include "tests/support/TestPlatform.h"

#include <gtest/gtest.h>

namespace brimlow {

using namespace Qt::StringLiterals;
using test::quoted;

namespace {

const QString profilesKey = TapPositionMappings::profilesKey.toString();
const QString activeKey = TapPositionMappings::activeKey.toString();
const QString legacyKey = TapPositionMappings::legacyKey.toString();

const QByteArray twoBindings = R"([{"id":"01234567-89ab-cdef-0123-456789abcdef","name":"One",
    "action":"none"},{"id":"11234567-89ab-cdef-0123-456789abcdef","name":"Two","action":"none"}])";
const QByteArray twoProfiles =
    R"([{"id":"AAAAAAAA-89AB-CDEF-0123-456789ABCDEF","name":"Work","bindings":[]},)"
    R"({"id":"BBBBBBBB-89AB-CDEF-0123-456789ABCDEF","name":"Home","bindings":[]}])";

constexpr const char* tenSpots =
    "Left 1, Left 2, Left 3, Left 4, Left 5, Right 1, Right 2, Right 3, Right 4, Right 5";

class Store : public testing::Test {
protected:
    TapPositionMappings open() { return {10, world.defaults}; }

    static std::string names(const auto& records) {
        QStringList result;
        for (const auto& each : records)
            result.append(each.name);
        return result.join(u", "_s).toStdString();
    }
    /// How many assignments to the preferences `action` makes.
    int writes(const std::function<void()>& action) {
        int count = 0;
        const auto counting = world.defaults.observeWillChange([&] { ++count; });
        action();
        return count;
    }

    test::TestPlatform world;
};

} // namespace

TEST_F(Store, FirstRunSeedsAndWritesTheDefaultLayout) {
    const auto store = open();
    EXPECT_EQ(names(store.profiles.get()), "Default");
    EXPECT_EQ(names(store.activeProfile()->bindings), tenSpots);
    EXPECT_EQ(world.defaults.stringForKey(activeKey), json::uuidText(store.activeProfileId));

    const auto stored = QJsonDocument::fromJson(world.defaults.dataForKey(profilesKey).value());
    auto second = stored[0][u"bindings"_s][6].toObject();
    EXPECT_TRUE(json::uuid(second.take(u"id"_s)));
    EXPECT_EQ(QJsonValue(second),
              quoted("{'name':'Right 2','action':'none','samples':[{'x':1,'y':0.7}],"
                     "'lastRecordedAt':789048000,'matchTolerance':1,'explicitMatchRadius':0.1,"
                     "'minimumPressure':0,'requireClick':false,'clickForce':0.6}"));
}

TEST_F(Store, WhatIsStoredIsTakenAndNotWrittenAgain) {
    world.defaults.setData(twoProfiles, profilesKey);
    for (const auto& [active, profile] :
         {std::pair(u"bbbbbbbb-89ab-cdef-0123-456789abcdef"_s, u"Home"_s),
          {u"CCCCCCCC-89AB-CDEF-0123-456789ABCDEF"_s, u"Work"_s}}) {
        world.defaults.setString(active, activeKey);
        QString taken;
        EXPECT_EQ(writes([&] { taken = open().activeProfile()->name; }), 0);
        EXPECT_EQ(taken, profile);
    }
}

TEST_F(Store, TheFormerSingleListIsTakenOver) {
    for (const QByteArray& current : {QByteArray("[]"), QByteArray("\xff\x00")}) {
        world.defaults.setData(current, profilesKey);
        world.defaults.setData(twoBindings, legacyKey);
        const auto store = open();
        EXPECT_EQ(names(store.profiles.get()), "Default");
        EXPECT_EQ(names(store.activeProfile()->bindings), "One, Two");
        EXPECT_EQ(world.defaults.dataForKey(legacyKey), twoBindings);
    }
    world.defaults.setData("[]", profilesKey);
    world.defaults.setData("[1]", legacyKey);
    EXPECT_EQ(names(open().activeProfile()->bindings), tenSpots);
}

TEST_F(Store, EachChangeIsStoredWhenItReturns) {
    auto store = open();
    store.resetToDefaultLayout(3);
    auto middle = store.activeProfile()->bindings[1];
    middle.name = u"Middle"_s;
    const TapPositionMapping stranger{.id = QUuid::createUuid(), .name = u"Stranger"_s};
    const QUuid first = store.activeProfileId;
    QUuid second;
    const struct {
        const char* what;
        std::function<void()> change;
        const char* profiles;
        const char* bindings;
    } rows[] = {
        {"update", [&] { store.update(middle); }, "Default", "Left 1, Middle, Left 3"},
        {"update unknown", [&] { store.update(stranger); }, "Default", "Left 1, Middle, Left 3"},
        {"add", [&] { store.add(middle); }, "Default", "Left 1, Middle, Left 3, Middle"},
        {"remove", [&] { store.remove(middle.id); }, "Default", "Left 1, Left 3"},
        {"create", [&] { second = store.createProfile(u"Same"_s); }, "Default, Same", tenSpots},
        {"create", [&] { store.createProfile(u"Same"_s); }, "Default, Same, Same", tenSpots},
        {"clear", [&] { store.clearAllBindings(); }, "Default, Same, Same", ""},
        {"remove second", [&] { store.removeProfile(second); }, "Default, Same", ""},
        {"switch unknown", [&] { store.switchTo(second); }, "Default, Same", ""},
        {"switch", [&] { store.switchTo(first); }, "Default, Same", "Left 1, Left 3"},
        {"rename", [&] { store.renameProfile(first, u"New"_s); }, "New, Same", "Left 1, Left 3"},
        {"rename blank", [&] { store.renameProfile(first, u" \t"_s); }, "New, Same",
         "Left 1, Left 3"},
        {"remove active", [&] { store.removeProfile(first); }, "Same", ""},
        {"remove last", [&] { store.removeProfile(store.profiles->back().id); }, "Default",
         tenSpots}, // its id goes with it
        {"reset", [&] { store.resetToDefaultLayout(25); }, "Default", tenSpots},
        {"reset to none", [&] { store.resetToDefaultLayout(-1); }, "Default", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        int announced = 0;
        const auto counting = store.observeWillChange([&] { ++announced; });
        EXPECT_EQ(writes(row.change), announced);
        EXPECT_EQ(names(store.profiles.get()), row.profiles);
        EXPECT_EQ(names(store.activeProfile()->bindings), row.bindings);
        EXPECT_EQ(open().profiles.get(), store.profiles.get());
        EXPECT_EQ(open().activeProfileId.get(), store.activeProfileId.get());
    }
}

TEST_F(Store, NamesLoseTheirOuterBlanks) {
    auto store = open();
    for (const auto& [given, name] :
         {std::pair(u" \t\u00a0Work  out\u3000\u2003"_s, u"Work  out"_s),
          {u"\nWork\r\n"_s, u"\nWork\r\n"_s},
          {u" \u200b "_s, u"\u200b"_s}, // a zero-width space is no separator
          {u" \t\u2009"_s, QString()}}) {
        const QUuid id = store.createProfile(given);
        EXPECT_EQ(store.activeProfile()->name, name.isEmpty() ? u"Untitled"_s : name);
        store.renameProfile(id, u"Before"_s);
        store.renameProfile(id, given);
        EXPECT_EQ(store.activeProfile()->name, name.isEmpty() ? u"Before"_s : name);
    }
}

TEST_F(Store, WhatCannotBeEncodedLeavesTheStoredProfilesAlone) {
    auto store = open();
    const auto before = world.defaults.dataForKey(profilesKey);
    EXPECT_EQ(writes([&] { store.add({.matchTolerance = std::nan("")}); }), 0);
    EXPECT_EQ(store.activeProfile()->bindings.size(), 11U);
    EXPECT_EQ(world.defaults.dataForKey(profilesKey), before);
}

} // namespace brimlow
