// What of a file is taken for a record, and what is written for one.

#include "profiles/JsonWriter.h"
#include "profiles/TapProfile.h"
#include "tests/profiles/Json.h"
#include "tests/support/TestPlatform.h"

#include <gtest/gtest.h>

#include <cmath>

namespace brimlow {

using namespace Qt::StringLiterals;
using json::DateStrategy;
using test::quoted;

namespace {

const QByteArray required =
    "'id':'01234567-89ab-cdef-0123-456789abcdef','name':'','action':'customCommand'";

std::optional<TapPositionMapping> decoded(const QByteArray& members) {
    return TapPositionMapping::fromJson(quoted('{' + members + '}'),
                                        DateStrategy::secondsSince2001);
}

} // namespace

TEST(Records, WhatIsMissingTakesItsDefaultAndOnlyWhatIsStrictFailsTheRecord) {
    test::TestPlatform world;
    const TapPositionMapping plain{.id = QUuid(u"01234567-89ab-cdef-0123-456789abcdef"_s),
                                   .name = u""_s,
                                   .action = TapAction::customCommand,
                                   .requireClick = true};
    for (const char* likeAbsent :
         {"'appName':null", "'targetWindowID':null", "'lastRecordedAt':null", "'samples':'x'",
          "'samples':[{'x':0.1,'y':0.2},{'x':0.1}]", "'samples':[{'x':true,'y':0}]",
          "'matchTolerance':'2'", "'explicitMatchRadius':'0.1'", "'minimumPressure':[]",
          "'requireClick':1", "'clickForce':{}", "'unheardOf':1"})
        EXPECT_EQ(decoded(required + ',' + likeAbsent), plain) << likeAbsent;
    for (const char* failing : {"'appName':3", "'windowTitle':[]", "'targetWindowID':1.5",
                                "'lastRecordedAt':'2001-01-01T00:00:00Z'"})
        EXPECT_FALSE(decoded(required + ',' + failing)) << failing;

    for (const auto& key : {u"id"_s, u"name"_s, u"action"_s}) {
        auto object = quoted('{' + required + '}').toObject();
        for (const QJsonValue& bad : {QJsonValue(1), QJsonValue(QJsonValue::Undefined)}) {
            object.insert(key, bad); // or removes it
            EXPECT_FALSE(TapPositionMapping::fromJson(object, DateStrategy::iso8601))
                << key.toStdString();
        }
    }
    EXPECT_EQ(decoded(QByteArray(required).replace("customCommand", "flyAway"))->action,
              TapAction::none);

    // Before there was that field, one switch stood for all bindings.
    world.defaults.setBool(true, u"tapToClick"_s);
    EXPECT_FALSE(decoded(required)->requireClick);
    EXPECT_TRUE(decoded(required + ",'requireClick':true")->requireClick);
}

TEST(Records, OneBindingThatFailsFailsTheProfile) {
    const test::TestPlatform world;
    const auto profile = [&](const QByteArray& bindings) {
        return TapProfile::fromJson(quoted('{' + required + ",'bindings':" + bindings + '}'),
                                    DateStrategy::secondsSince2001);
    };
    EXPECT_EQ(profile("[{" + required + "}]")->bindings.size(), 1U);
    EXPECT_FALSE(profile("null"));
    EXPECT_FALSE(profile("[{" + required + "},{}]"));
}

TEST(Records, AnIdIsExactlyItsCanonicalForm) {
    const auto id = json::uuid(quoted("'01234567-89ab-CDEF-0123-456789abcdef'"));
    ASSERT_TRUE(id);
    EXPECT_EQ(json::uuidText(*id), u"01234567-89AB-CDEF-0123-456789ABCDEF"_s);
    for (const char* bad :
         {"'{01234567-89ab-cdef-0123-456789abcdef}'", "'01234567-89ab-cdef-0123-456789abcdef\\n'",
          "'01234567-89ab-cdef-0123-456789abcdeg'", "''", "7"})
        EXPECT_FALSE(json::uuid(quoted(bad))) << bad;
}

TEST(Records, WindowNumbersAreWholeAndHave32Bits) {
    EXPECT_EQ(json::unsigned32(quoted("1.0")), 1U);
    EXPECT_EQ(json::unsigned32(quoted("4294967295")), 0xffffffffU);
    for (const char* bad : {"1.5", "-1", "4294967296", "1e300", "true", "'1'"})
        EXPECT_FALSE(json::unsigned32(quoted(bad))) << bad;
}

TEST(Records, DatesFollowTheDocument) {
    EXPECT_EQ(json::date(quoted("-978307200.25"), DateStrategy::secondsSince2001),
              platform::Date{-0.25});
    const auto read = [](const char* text) {
        return json::date(quoted(text), DateStrategy::iso8601);
    };
    for (const char* newYear :
         {"'2001-01-01T00:00:00Z'", "'2001-01-01T01:30:00+01:30'", "'2000-12-31T23:00:00-01:00'"})
        EXPECT_EQ(read(newYear), platform::Date{978307200}) << newYear;
    for (const char* bad : {"'2001-01-01T00:00:00.5Z'", "'2001-01-01T00:00:00'", "'2001-01-01'",
                            "'2001-01-01 00:00:00Z'", "'2001-02-29T00:00:00Z'",
                            "'2001-01-01T24:00:00Z'", "'2001-01-01T00:00:00Z\\n'", "0",
                            "'9999-12-31T23:59:59-01:00'", "'2001-01-01T00:00:00+24:00'"})
        EXPECT_FALSE(read(bad)) << bad;
    EXPECT_EQ(json::iso8601Text({978307199.9}), u"2000-12-31T23:59:59Z"_s);
}

TEST(Records, HalfASurrogatePairIsNoText) {
    EXPECT_EQ(json::text(quoted("'a\\ud800b'")), u"a?b"_s);
    json::Writer writer(DateStrategy::secondsSince2001);
    writer.value(u"\n\""_s + QChar(0xdc00));
    EXPECT_EQ(writer.bytes(), R"("\u000a\"?")");
}

TEST(Records, ADocumentHoldsNothingThatCannotBeWritten) {
    const auto isWritten = [](auto value) {
        json::Writer writer(DateStrategy::iso8601);
        writer.value(value);
        return writer.bytes().has_value();
    };
    EXPECT_TRUE(isWritten(1e308) && isWritten(platform::Date{0}));
    EXPECT_FALSE(isWritten(INFINITY) || isWritten(platform::Date{NAN}));
    EXPECT_FALSE(isWritten(platform::Date{1e12})); // year 33658
}

} // namespace brimlow
