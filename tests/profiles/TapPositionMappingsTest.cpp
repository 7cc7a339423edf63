#include "profiles/TapPositionMappings.h"

#include "tests/profiles/Json.h"
#include "tests/support/TestPlatform.h"

#include <QDir>

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

class Store : public testing::Test {
protected:
    TapPositionMappings open() { return {10, world.defaults}; }

    QJsonArray stored() const {
        return QJsonDocument::fromJson(world.defaults.dataForKey(profilesKey).value()).array();
    }
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
    EXPECT_EQ(
        names(store.activeProfile()->bindings),
        "Left 1, Left 2, Left 3, Left 4, Left 5, Right 1, Right 2, Right 3, Right 4, Right 5");
    EXPECT_EQ(store.activeProfile()->bindings[0].samples, std::vector{(TapSample{0, 0.9})});
    EXPECT_EQ(world.defaults.stringForKey(activeKey), json::uuidText(store.activeProfileId));

    auto second = stored()[0][u"bindings"_s][6].toObject();
    EXPECT_TRUE(json::uuid(second.take(u"id"_s)));
    EXPECT_EQ(QJsonValue(second),
              quoted("{'name':'Right 2','action':'none','samples':[{'x':1,'y':0.7}],"
                     "'lastRecordedAt':789048000,'matchTolerance':1,'explicitMatchRadius':0.1,"
                     "'minimumPressure':0,'requireClick':false,'clickForce':0.6}"));
}

TEST_F(Store, ASuccessfulLoadWritesNothing) {
    world.defaults.setData(twoProfiles, profilesKey);
    struct Row {
        QString active;
        QString profile;
    };
    for (const Row& row : {Row{u"bbbbbbbb-89ab-cdef-0123-456789abcdef"_s, u"Home"_s},
                           Row{u"CCCCCCCC-89AB-CDEF-0123-456789ABCDEF"_s, u"Work"_s},
                           Row{u"{BBBBBBBB-89AB-CDEF-0123-456789ABCDEF}"_s, u"Work"_s}}) {
        world.defaults.setString(row.active, activeKey);
        EXPECT_EQ(writes([&] { EXPECT_EQ(open().activeProfile()->name, row.profile); }), 0);
    }
}

TEST_F(Store, TheFormerSingleListIsTakenOver) {
    for (const QByteArray& current : {QByteArray("[]"), QByteArray("\xff\x00")}) {
        world.defaults.setData(current, profilesKey);
        world.defaults.setData(twoBindings, legacyKey);
        const auto store = open();
        EXPECT_EQ(names(store.profiles.get()), "Default");
        EXPECT_EQ(names(store.activeProfile()->bindings), "One, Two");
        EXPECT_EQ(stored().size(), 1);
        EXPECT_EQ(world.defaults.stringForKey(activeKey), json::uuidText(store.activeProfileId));
        EXPECT_EQ(world.defaults.dataForKey(legacyKey), twoBindings);
    }
    world.defaults.setData("[]", profilesKey);
    world.defaults.setData("[1]", legacyKey);
    EXPECT_EQ(open().activeProfile()->bindings.size(), 10U);
}

TEST_F(Store, UnreadableProfilesAreReplacedAndKeptBeside) {
    const QByteArray damaged = twoProfiles.chopped(1);
    world.defaults.setData(damaged, profilesKey);
    EXPECT_EQ(names(open().profiles.get()), "Default");
    EXPECT_EQ(stored().size(), 1);

    const QDir folder(world.folder.path());
    const auto kept = folder.entryList({u"preferences.json.tapProfiles.v1.damaged-*"_s});
    ASSERT_EQ(kept.size(), 1);
    QFile file(folder.filePath(kept[0]));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), damaged);
    EXPECT_EQ(world.log.take(platform::Stream::error).filter(kept[0]).size(), 1);
}

TEST_F(Store, EachChangeIsAnnouncedAndWrittenOnce) {
    auto store = open();
    const TapPositionMapping known{.id = QUuid::createUuid(), .name = u"New"_s};
    const TapPositionMapping unknown{.id = QUuid::createUuid(), .name = u"Stranger"_s};
    const QUuid first = store.activeProfileId;
    struct Row {
        const char* what;
        std::function<void()> action;
        int assignments;
    };
    const Row rows[] = {
        {"add", [&] { store.add(known); }, 1},
        {"update", [&] { store.update(known); }, 1},
        {"update unknown", [&] { store.update(unknown); }, 0},
        {"remove", [&] { store.remove(known.id); }, 1},
        {"remove unknown", [&] { store.remove(unknown.id); }, 1},
        {"create", [&] { store.createProfile(u"Second"_s); }, 2},
        {"switch", [&] { store.switchTo(first); }, 1},
        {"switch unknown", [&] { store.switchTo(unknown.id); }, 0},
        {"rename", [&] { store.renameProfile(first, u"Renamed"_s); }, 1},
        {"rename blank", [&] { store.renameProfile(first, u" \t"_s); }, 0},
        {"rename unknown", [&] { store.renameProfile(unknown.id, u"a"_s); }, 0},
        {"remove unknown profile", [&] { store.removeProfile(unknown.id); }, 1},
        {"remove active profile", [&] { store.removeProfile(first); }, 2},
        {"remove last profile", [&] { store.removeProfile(store.activeProfileId); }, 3},
        {"reset", [&] { store.resetToDefaultLayout(3); }, 1},
        {"clear", [&] { store.clearAllBindings(); }, 1},
    };
    int announced = 0;
    const auto counting = store.observeWillChange([&] { ++announced; });
    for (const Row& row : rows) {
        announced = 0;
        EXPECT_EQ(writes(row.action), row.assignments) << row.what;
        EXPECT_EQ(announced, row.assignments) << row.what;
        EXPECT_EQ(open().profiles.get(), store.profiles.get()) << row.what;
        EXPECT_EQ(open().activeProfileId.get(), store.activeProfileId.get()) << row.what;
    }
}

TEST_F(Store, BindingsAreEditedInPlace) {
    auto store = open();
    store.resetToDefaultLayout(3);
    auto middle = store.activeProfile()->bindings[1];
    middle.name = u"Middle"_s;
    store.update(middle);
    EXPECT_EQ(names(store.activeProfile()->bindings), "Left 1, Middle, Left 3");
    store.add(middle);
    store.remove(middle.id);
    EXPECT_EQ(names(store.activeProfile()->bindings), "Left 1, Left 3");
    for (const auto& [count, size] : {std::pair(-1, 0U), {6, 6U}, {25, 10U}}) {
        store.resetToDefaultLayout(count);
        EXPECT_EQ(store.activeProfile()->bindings.size(), size);
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
        EXPECT_EQ(store.activeProfile()->id, id);
        EXPECT_EQ(store.activeProfile()->name, name.isEmpty() ? u"Untitled"_s : name);
        EXPECT_EQ(store.activeProfile()->bindings.size(), 10U);
        store.renameProfile(id, u"Before"_s);
        store.renameProfile(id, given);
        EXPECT_EQ(store.activeProfile()->name, name.isEmpty() ? u"Before"_s : name);
    }
}

TEST_F(Store, OneProfileAlwaysRemainsAndIsActive) {
    world.defaults.setData("[]", profilesKey);
    TapPositionMappings store(0, world.defaults);
    const QUuid first = store.activeProfileId;
    const QUuid second = store.createProfile(u"Same"_s);
    const QUuid third = store.createProfile(u"Same"_s);
    store.removeProfile(second);
    EXPECT_EQ(store.activeProfileId.get(), third);
    store.removeProfile(store.profiles->back().id); // its id goes with it
    EXPECT_EQ(store.activeProfileId.get(), first);
    store.removeProfile(first);
    EXPECT_EQ(names(store.profiles.get()), "Default");
    EXPECT_NE(store.activeProfileId.get(), first);
    EXPECT_EQ(store.activeProfile()->bindings.size(), 10U);
}

TEST_F(Store, WhatCannotBeEncodedLeavesTheStoredProfilesAlone) {
    auto store = open();
    const auto before = world.defaults.dataForKey(profilesKey);
    EXPECT_EQ(writes([&] { store.add({.matchTolerance = std::nan("")}); }), 0);
    EXPECT_EQ(store.activeProfile()->bindings.size(), 11U);
    EXPECT_EQ(world.defaults.dataForKey(profilesKey), before);
}

} // namespace brimlow
