// Profiles from and to files.

#include "profiles/ProfileImportError.h"
#include "profiles/TapPositionMappings.h"
#include "tests/support/TestPlatform.h"

#include <gtest/gtest.h>

#include <set>

namespace brimlow {

using namespace Qt::StringLiterals;

namespace {

const QByteArray id = "'id':'01234567-89ab-cdef-0123-456789abcdef'";
const QByteArray start = "{'format':'brimlow.profile',";
const QByteArray moment = "'exportedAt':'2026-11-16T20:25:00Z'";

QByteArray withQuotes(QByteArray text) {
    return text.replace('\'', '"');
}

/// A file that holds one profile, whose name stands in quotation marks.
QByteArray fileOf(const QByteArray& name) {
    return withQuotes(start + "'version':1," + moment + ",'profile':{" + id
                      + ",'bindings':[],'name':" + name + "}}");
}

class Exchange : public testing::Test {
protected:
    std::string complaint(const QByteArray& data) {
        try {
            store.importProfile(data, true);
            return {};
        } catch (const ProfileImportError& error) {
            return error.errorDescription().toStdString();
        }
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

TEST_F(Exchange, WhatIsImportedTakesNewIdsAndNoWindowNumbersAndMayReplace) {
    auto window = store.activeProfile()->bindings[0];
    window.targetWindowID = 7;
    store.update(window);
    const auto data = store.exportActiveProfileData().value();
    store.createProfile(u"Mine"_s);
    for (const bool asNew : {true, false}) {
        const QUuid before = store.activeProfileId;
        const QUuid taker = store.importProfile(data, asNew);
        EXPECT_EQ(store.activeProfile()->id, taker);
        EXPECT_EQ(taker != before, asNew);
        EXPECT_EQ(store.activeProfile()->name, u"Default 2"_s);
        std::set<QUuid> ids;
        for (const TapProfile& profile : store.profiles.get())
            for (const TapPositionMapping& binding : profile.bindings)
                ids.insert(binding.id);
        EXPECT_EQ(ids.size(), 30U);
        EXPECT_FALSE(store.activeProfile()->bindings[0].targetWindowID);
        store.clearAllBindings();
    }
    EXPECT_EQ(store.profiles->front().bindings[0], window);
}

TEST_F(Exchange, TheFileIsPrettyAndSorted) {
    store.resetToDefaultLayout(1);
    const auto file = store.exportActiveProfileData().value();
    EXPECT_TRUE(file.contains("  \"exportedAt\": \"2026-01-02T12:00:00Z\""));
    QByteArrayList members;
    for (const QByteArray& line : file.split('\n')) {
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
                                      {"' \\u00a0'", u"Imported"_s},
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
        {start + "'version':-1.0," + moment + profile, ""},
        {start + "'version':2," + moment + profile, tooNew("2")},
        {start + "'version':9223372036854775807," + moment + profile,
         tooNew("9223372036854775807")},
        {start + "'version':9223372036854775808," + moment + profile, unreadable},
        {start + "'version':1.5," + moment + profile, unreadable},
        {start + "'version':2," + moment + "}", unreadable},
        {start + "'version':1" + profile, unreadable},
        {"{'format':'Brimlow.profile','version':2," + moment + profile, notOurs},
        {"{'version':1," + moment + profile, unreadable},
        {start + "'version':1,'exportedAt':800000000" + profile, unreadable},
        {start + "'version':1,'more':{}," + moment + profile, ""},
        {"[" + start + "'version':1," + moment + profile + "]", unreadable},
        {"", unreadable},
    };
    for (const Row& row : rows)
        EXPECT_EQ(complaint(withQuotes(row.file)), row.complaint) << row.file.toStdString();
}

TEST_F(Exchange, WhatIsNotJSONToTheLetterIsUnreadable) {
    for (const char* good : {"'a:\\\"b.,\\u0022\\/'", "'\\ud83e\\udd8a \xf0\x9f\xa6\x8a'",
                             "'\\\\','more':{'name':1.5e-3,'id':[0.5,-0]}"})
        EXPECT_EQ(complaint(fileOf(good)), "") << good;
    for (const char* bad :
         {"'p','name':'p'", "'p','more':{'a':1,'\\u0061':2}", "'\\ud800'", "'\\udd8a\\ud83e'",
          "'\\ud83e\\u0041'", "'p','\\udfff':1", "'\xff'", "'a\nb'", "'\\x41'", "'p','more':1.",
          "'p','more':-.5", "'p','more':1e999", "'p','more':NaN"})
        EXPECT_EQ(complaint(fileOf(bad)), unreadable) << bad;
    EXPECT_EQ(complaint("\xef\xbb\xbf" + fileOf("'p'")), ""); // editors on other systems begin so
}

} // namespace brimlow
