// Profiles from and to files.

#include "profiles/ProfileImportError.h"
#include "profiles/TapPositionMappings.h"
#include "tests/profiles/Json.h"
#include "tests/support/TestPlatform.h"

#include <gtest/gtest.h>

#include <set>

namespace brimlow {

using namespace Qt::StringLiterals;

namespace {

const QByteArray id = "'id':'01234567-89ab-cdef-0123-456789abcdef'";
const QByteArray binding = id + ",'name':'Corner','action':'openApp'";
const QByteArray start = "{'format':'brimlow.profile',";
const QByteArray moment = "'exportedAt':'2026-11-16T20:25:00Z'";

QByteArray withQuotes(QByteArray text) {
    return text.replace('\'', '"');
}

/// A file that holds one profile with `bindings`, whose name stands in quotation marks.
QByteArray fileOf(const QByteArray& name, const QByteArray& bindings = "[]") {
    return withQuotes(start + "'version':1," + moment + ",'profile':{" + id
                      + ",'bindings':" + bindings + ",'name':" + name + "}}");
}

QByteArray fileWithBinding(const QByteArray& members) {
    return fileOf("'p'", "[{" + binding + members + "}]");
}

class Exchange : public testing::Test {
protected:
    /// What importing `data` says, having seen that it changes nothing when it says anything.
    std::string complaint(const QByteArray& data) {
        const auto profiles = store.profiles.get();
        const QUuid active = store.activeProfileId;
        const bool decodes = store.canDecodeProfile(data);
        int writes = 0;
        const auto counting = world.defaults.observeWillChange([&] { ++writes; });
        try {
            store.importProfile(data, true);
            EXPECT_TRUE(decodes);
            return {};
        } catch (const ProfileImportError& error) {
            EXPECT_FALSE(decodes);
            EXPECT_EQ(store.profiles.get(), profiles);
            EXPECT_EQ(store.activeProfileId.get(), active);
            EXPECT_EQ(writes, 0);
            return error.errorDescription().toStdString();
        }
    }
    const TapPositionMapping& imported(const QByteArray& data) {
        EXPECT_EQ(complaint(data), "");
        return store.activeProfile()->bindings.at(0);
    }

    test::TestPlatform world;
    TapPositionMappings store{10, world.defaults};
};

const std::string unreadable = "This file couldn't be read as a Brimlow profile.";
const std::string notOurs = "This file isn't a Brimlow profile export.";

std::string tooNew(const char* version) {
    return std::string("This profile was exported by a newer version of Brimlow (format v")
           + version + "). Update Brimlow and try again.";
}

} // namespace

TEST_F(Exchange, AnExportedProfileComesBackAsASecondOne) {
    auto window = store.activeProfile()->bindings[0];
    window.targetWindowID = 7;
    window.action = TapAction::focusWindow;
    store.update(window);
    const TapProfile original = *store.activeProfile();
    const auto data = store.exportActiveProfileData().value();
    for (const auto& name : {u"Default 2"_s, u"Default 3"_s}) {
        const QUuid made = store.importProfile(data, true);
        const TapProfile& copy = *store.activeProfile();
        EXPECT_EQ(copy.id, made);
        EXPECT_NE(copy.id, original.id);
        EXPECT_EQ(copy.name, name);
        auto expected = original.bindings;
        std::set<QUuid> ids;
        for (std::size_t i = 0; i < expected.size(); ++i) {
            ids.insert({expected[i].id, copy.bindings.at(i).id});
            expected[i].id = copy.bindings[i].id;
            expected[i].targetWindowID.reset();
        }
        EXPECT_EQ(copy.bindings, expected);
        EXPECT_EQ(ids.size(), 2 * expected.size());
    }
    EXPECT_EQ(store.profiles->front(), original);
}

TEST_F(Exchange, ReplacingKeepsTheProfileItself) {
    store.renameProfile(store.activeProfileId, u"Mine"_s);
    const QUuid active = store.activeProfileId;
    EXPECT_EQ(store.importProfile(fileWithBinding(""), false), active);
    EXPECT_EQ(store.profiles->size(), 1U);
    EXPECT_EQ(store.activeProfile()->name, u"Mine"_s);
    EXPECT_EQ(store.activeProfile()->bindings.at(0).name, u"Corner"_s);
}

TEST_F(Exchange, TheFileIsPrettyAndSorted) {
    store.resetToDefaultLayout(1);
    const auto first = store.exportActiveProfileData().value();
    world.time.advance(1.5);
    auto second = store.exportActiveProfileData().value();
    ASSERT_TRUE(second.contains("\"2026-01-02T12:00:01Z\""));
    EXPECT_EQ(second.replace("\"2026-01-02T12:00:01Z\"", "\"2026-01-02T12:00:00Z\""), first);
    QByteArrayList members;
    for (const QByteArray& line : first.split('\n')) {
        if (line.contains("\": "))
            members += line.trimmed().split('"')[1];
    }
    EXPECT_EQ(members.join(' '),
              "exportedAt format profile bindings action clickForce explicitMatchRadius id "
              "lastRecordedAt matchTolerance minimumPressure name requireClick samples x y id name "
              "version");
    store.add({.matchTolerance = std::nan("")});
    EXPECT_FALSE(store.exportActiveProfileData());
}

TEST_F(Exchange, NamesAreMadeUnique) {
    for (const auto& [given, name] : {std::pair("'Default'", u"Default 2"_s),
                                      {"'Default'", u"Default 3"_s},
                                      {"' \\tdefault '", u"default"_s},
                                      {"' \\u00a0'", u"Imported"_s},
                                      {"''", u"Imported 2"_s},
                                      {"'\\n'", u"\n"_s},
                                      {"'Default 2'", u"Default 2 2"_s}}) {
        EXPECT_EQ(complaint(fileOf(given)), "") << given;
        EXPECT_EQ(store.activeProfile()->name, name);
    }
}

TEST_F(Exchange, StructureIsCheckedFirstThenFormatThenVersion) {
    const QByteArray profile = ",'profile':{" + id + ",'name':'p','bindings':[]}}";
    struct Row {
        QByteArray file;
        std::string complaint;
    };
    const Row rows[] = {
        {start + "'version':0," + moment + profile, ""},
        {start + "'version':-1.0," + moment + profile, ""},
        {start + "'version':2," + moment + profile, tooNew("2")},
        {start + "'version':9223372036854775807," + moment + profile,
         tooNew("9223372036854775807")},
        {start + "'version':9223372036854775808," + moment + profile, unreadable},
        {start + "'version':1.5," + moment + profile, unreadable},
        {start + "'version':true," + moment + profile, unreadable},
        {start + "'version':2," + moment + "}", unreadable},
        {start + "'version':1" + profile, unreadable},
        {"{'format':'Brimlow.profile','version':2," + moment + profile, notOurs},
        {"{'format':'','version':1," + moment + profile, notOurs},
        {"{'format':null,'version':1," + moment + profile, unreadable},
        {"{'version':1," + moment + profile, unreadable},
        {start + "'version':1,'exportedAt':'2026-11-16T20:25:00.0Z'" + profile, unreadable},
        {start + "'version':1,'exportedAt':'2026-11-16T20:25:00+01:00'" + profile, ""},
        {start + "'version':1,'exportedAt':800000000" + profile, unreadable},
        {start + "'version':1,'more':{}," + moment + profile, ""},
        {"[" + start + "'version':1," + moment + profile + "]", unreadable},
        {"", unreadable},
    };
    for (const Row& row : rows)
        EXPECT_EQ(complaint(withQuotes(row.file)), row.complaint) << row.file.toStdString();
}

TEST_F(Exchange, WhatOlderAndNewerVersionsWroteIsTaken) {
    const auto& plain = imported(fileWithBinding(""));
    EXPECT_TRUE(plain.samples.empty() && plain.requireClick);
    EXPECT_EQ(imported(fileOf("'p'", "[{" + id + ",'name':'n','action':'fly'}]")).action,
              TapAction::none);
    EXPECT_EQ(
        imported(fileWithBinding(",'gesture':'swipe','samples':[{'x':1,'y':0,'z':2}]")).samples,
        std::vector{(TapSample{1, 0})});
    EXPECT_EQ(
        imported(fileWithBinding(",'lastRecordedAt':'2026-01-02T13:00:00+01:00'")).lastRecordedAt,
        world.time.wallClock());
    for (const char* bad :
         {",'lastRecordedAt':'2026-02-29T00:00:00Z'", ",'lastRecordedAt':789048000",
          ",'targetWindowID':-1", ",'appName':false"})
        EXPECT_EQ(complaint(fileWithBinding(bad)), unreadable) << bad;
}

TEST_F(Exchange, WhatIsNotJSONToTheLetterIsUnreadable) {
    const auto nested = [](qsizetype depth) {
        return fileOf("'p'", "[{" + binding + ",'samples':" + QByteArray(depth, '[')
                                 + QByteArray(depth, ']') + "}]");
    };
    EXPECT_EQ(complaint(nested(1000)), "");
    EXPECT_EQ(complaint(nested(100'000)), unreadable);
    for (const char* good : {"'a:\\\"b.,\\u0022\\/'", "'\\ud83e\\udd8a \xf0\x9f\xa6\x8a'",
                             "'\\\\','more':{'name':1.5e-3,'id':[0.5,-0]}"})
        EXPECT_EQ(complaint(fileOf(good)), "") << good;
    for (const char* bad : {"'p','name':'p'",   "'p','more':{'a':1,'\\u0061':2}",
                            "'\\ud800'",        "'\\udd8a\\ud83e'",
                            "'\\ud83e\\u0041'", "'p','\\udfff':1",
                            "'\xff'",           "'\xed\xa0\x80'",
                            "'\xc0\xaf'",       "'a\nb'",
                            "'\x01'",           "'\\x41'",
                            "'p','more':1.",    "'p','more':.5",
                            "'p','more':-.5",   "'p','more':1e999",
                            "'p','more':01",    "'p',",
                            "'p','more':NaN",   "'p'/**/"})
        EXPECT_EQ(complaint(fileOf(bad)), unreadable) << bad;
    EXPECT_EQ(complaint(fileOf("'p'") + '\0'), unreadable);
    EXPECT_EQ(complaint("\xef\xbb\xbf" + fileOf("'p'")), ""); // editors on other systems begin so
}

} // namespace brimlow
