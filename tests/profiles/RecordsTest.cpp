#include "profiles/JsonWriter.h"
#include "profiles/TapProfile.h"
#include "tests/profiles/Json.h"
#include "tests/support/TestPlatform.h"

#include <gtest/gtest.h>

namespace brimlow {

using namespace Qt::StringLiterals;
using json::DateStrategy;
using test::quoted;

namespace {

const QByteArray required =
    "'id':'01234567-89ab-cdef-0123-456789abcdef','name':'Corner','action':'openApp'";

std::optional<TapPositionMapping> decoded(const QByteArray& members) {
    return TapPositionMapping::fromJson(quoted('{' + members + '}'),
                                        DateStrategy::secondsSince2001);
}

TapPositionMapping withSamples(std::vector<TapSample> samples, double tolerance = 1.0,
                               std::optional<double> radius = {}) {
    return {
        .samples = std::move(samples), .matchTolerance = tolerance, .explicitMatchRadius = radius};
}

} // namespace

TEST(Records, EveryActionIsReadBackFromItsRawValue) {
    for (const TapAction action : allTapActions)
        EXPECT_EQ(tapActionFromJson(rawValue(action)), action);
    EXPECT_EQ(rawValue(TapAction::toggleBrimlow), u"toggleBrimlow"_s);
    EXPECT_EQ(displayName(TapAction::hideAll), u"Hide Everything"_s);
    EXPECT_EQ(iconName(TapAction::customCommand), u"terminal"_s);
}

TEST(Records, MissingFieldsTakeTheirDefaults) {
    const test::TestPlatform world;
    EXPECT_EQ(decoded("'id':'01234567-89ab-cdef-0123-456789abcdef','name':'','action':'flyAway'"),
              (TapPositionMapping{.id = QUuid(u"01234567-89ab-cdef-0123-456789abcdef"_s),
                                  .name = u""_s,
                                  .requireClick = true}));
}

TEST(Records, StrictMembersFailTheRecordAndLenientOnesDoNot) {
    const test::TestPlatform world;
    const auto plain = decoded(required);
    ASSERT_TRUE(plain);
    for (const char* failing : {"'appName':3", "'windowTitle':[]", "'targetWindowID':1.5",
                                "'lastRecordedAt':'2001-01-01T00:00:00Z'"})
        EXPECT_FALSE(decoded(required + ',' + failing)) << failing;
    for (const char* likeAbsent :
         {"'appName':null", "'windowTitle':null", "'targetWindowID':null", "'lastRecordedAt':null",
          "'samples':null", "'samples':'x'", "'samples':[{'x':0.1,'y':0.2},{'x':0.1}]",
          "'samples':[{'x':true,'y':0}]", "'matchTolerance':'2'", "'explicitMatchRadius':'0.1'",
          "'minimumPressure':[]", "'requireClick':1", "'clickForce':{}", "'unheardOf':1"})
        EXPECT_EQ(decoded(required + ',' + likeAbsent), plain) << likeAbsent;
}

TEST(Records, RequiredMembersAreRequired) {
    const test::TestPlatform world;
    for (const auto& key : {u"id"_s, u"name"_s, u"action"_s}) {
        auto object = quoted('{' + required + '}').toObject();
        for (const QJsonValue& bad : {QJsonValue(1), {}, QJsonValue(QJsonValue::Undefined)}) {
            object.insert(key, bad); // or removes it
            EXPECT_FALSE(TapPositionMapping::fromJson(object, DateStrategy::iso8601))
                << key.toStdString();
        }
    }
    const QByteArray id = "'id':'01234567-89ab-cdef-0123-456789abcdef',";
    const auto profile = [&](const QByteArray& bindings) {
        return TapProfile::fromJson(quoted('{' + id + "'name':'p','bindings':" + bindings + '}'),
                                    DateStrategy::secondsSince2001);
    };
    EXPECT_EQ(profile("[{" + required + "}]")->bindings.size(), 1U);
    EXPECT_FALSE(profile("null"));
    EXPECT_FALSE(profile("[{" + required + "},{}]"));
}

TEST(Records, TheFormerSwitchDecidesAboutTheClickOfOldRecords) {
    test::TestPlatform world;
    world.defaults.setBool(true, u"tapToClick"_s);
    EXPECT_FALSE(decoded(required)->requireClick);
    EXPECT_TRUE(decoded(required + ",'requireClick':true")->requireClick);
    world.defaults.setBool(false, u"tapToClick"_s);
    EXPECT_TRUE(decoded(required)->requireClick);
    EXPECT_FALSE(decoded(required + ",'requireClick':false")->requireClick);
}

TEST(Records, ARecordSurvivesTheFile) {
    const test::TestPlatform world;
    const TapPositionMapping full{.id = QUuid::createUuid(),
                                  .name = u"50 % \"ü\" 🦊"_s,
                                  .action = TapAction::focusWindow,
                                  .appName = u"Editor"_s,
                                  .windowTitle = u""_s,
                                  .targetWindowID = 0xfffffffeU,
                                  .samples = {{0.1, 0.2}, {1.0 / 3, -0.5}},
                                  .lastRecordedAt = platform::Date{1767355200.123456},
                                  .matchTolerance = 1.3,
                                  .explicitMatchRadius = 0.07,
                                  .minimumPressure = 0.25,
                                  .requireClick = true,
                                  .clickForce = 0.9};
    json::Writer writer(DateStrategy::secondsSince2001);
    full.write(writer);
    const auto value = test::parsed(writer.bytes().value());
    EXPECT_EQ(TapPositionMapping::fromJson(value, DateStrategy::secondsSince2001), full);
    EXPECT_EQ(value.toObject().size(), 13);
}

TEST(Records, RadiusComesFromTheSamplesUnlessItIsExplicit) {
    struct Row {
        TapPositionMapping binding;
        double radius;
    };
    const Row rows[] = {{withSamples({}, 2.0), 0.06},
                        {withSamples({{0.5, 0.5}}, 0.5), 0.015},
                        {withSamples({{0, 0}, {0.01, 0}}), 0.03},
                        {withSamples({{0, 0}, {0.01, 0}}, 4.0), 0.06},
                        {withSamples({{0, 0}, {0.3, 0}, {0, 0.4}}), 0.6},
                        {withSamples({{0, 0}, {0.3, 0}, {0, 0.4}}, 1.5, 0.1), 0.15},
                        {withSamples({{0, 0}, {0.3, 0}}, 1.0, 0.01), 0.01}};
    for (const Row& row : rows)
        EXPECT_DOUBLE_EQ(row.binding.matchRadius(), row.radius);
}

TEST(Records, DiagnosisNamesTheVerdictOfTheMatcher) {
    struct Row {
        TapPositionMapping binding;
        TapSample tap;
        const char* text;
    };
    const Row rows[] = {{withSamples({}), {0, 0}, "(not recorded)"},
                        {withSamples({{0, 0.5}}, 1.0, 0.1),
                         {0.1, 0.5},
                         "[MATCH] nearest=0.1000 radius=0.1000 (samples=1, tolerance=1.0)"},
                        {withSamples({{0, 0.5}}, 1.0, 0.1),
                         {0.100001, 0.5},
                         "[REJECT] nearest=0.1000 radius=0.1000 (samples=1, tolerance=1.0)"},
                        {withSamples({{0, 0}, {0.75, 0}}, 0.25),
                         {0.5, 0},
                         "[MATCH] nearest=0.2500 radius=0.2812 (samples=2, tolerance=0.2)"}};
    for (const Row& row : rows)
        EXPECT_EQ(row.binding.diagnose(row.tap).toStdString(), row.text);
}

} // namespace brimlow
