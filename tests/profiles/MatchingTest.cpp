#include "profiles/TapPositionMappings.h"
#include "tests/support/TestPlatform.h"

#include <gtest/gtest.h>

#include <cmath>

namespace brimlow {

using namespace Qt::StringLiterals;

namespace {

TapPositionMapping binding(std::vector<TapSample> samples, std::optional<double> radius = {},
                           double tolerance = 1.0) {
    return {.id = QUuid::createUuid(),
            .samples = std::move(samples),
            .matchTolerance = tolerance,
            .explicitMatchRadius = radius};
}

class Matching : public testing::Test {
protected:
    void bind(const QString& name, TapPositionMapping binding) {
        binding.name = name;
        store.add(binding);
    }
    std::string match(double x, double y) const {
        const auto binding = store.match(x, y);
        return binding ? binding->name.toStdString() : "nothing";
    }

    test::TestPlatform world;
    TapPositionMappings store{0, world.defaults};
};

} // namespace

TEST_F(Matching, NothingMatchesWithoutSamplesOrAProfile) {
    bind(u"Unrecorded"_s, binding({}, 10.0));
    EXPECT_EQ(match(0.5, 0.5), "nothing");
    EXPECT_FALSE(store.hasAnyRecorded());
    bind(u"Recorded"_s, binding({{0.5, 0.5}}));
    EXPECT_TRUE(store.hasAnyRecorded());
    store.activeProfileId = QUuid();
    EXPECT_EQ(match(0.5, 0.5), "nothing");
    EXPECT_FALSE(store.hasAnyRecorded());
}

TEST_F(Matching, WhatIsNotANumberMatchesNothing) {
    bind(u"Odd"_s, binding({{0, 0.5}, {0.1, 0.5}}, {}, NAN));
    EXPECT_EQ(match(0, 0.5), "nothing");
    bind(u"Edge"_s, binding({{0, 0.5}}, 0.1));
    EXPECT_EQ(match(0, 0.5), "Edge");
    EXPECT_EQ(match(NAN, 0.5), "nothing");
}

TEST_F(Matching, TheNearestCentreWinsAmongTheEligibleAndTheFirstOfEquals) {
    bind(u"A"_s, binding({{0.2, 0.5}, {0.6, 0.5}})); // radius 0.6, centre (0.4, 0.5)
    bind(u"B"_s, binding({{0.45, 0.5}}, 0.1));
    bind(u"Twin"_s, binding({{0.45, 0.5}}, 0.1));
    EXPECT_EQ(match(0.42, 0.5), "A");
    EXPECT_EQ(match(0.43, 0.5), "B");
    EXPECT_EQ(match(0.56, 0.5), "A"); // beyond B's reach
}

TEST(MatchRadius, ComesFromTheSamplesUnlessItIsExplicit) {
    const std::vector<TapSample> near{{0, 0}, {0.01, 0}};
    const std::vector<TapSample> far{{0, 0}, {0.3, 0}, {0, 0.4}};
    const std::pair<TapPositionMapping, double> rows[] = {{binding({}, {}, 2.0), 0.06},
                                                          {binding({{0.5, 0.5}}, {}, 0.5), 0.015},
                                                          {binding(near), 0.03},
                                                          {binding(near, {}, 4.0), 0.06},
                                                          {binding(far), 0.6},
                                                          {binding(far, 0.1, 1.5), 0.15},
                                                          {binding(far, 0.01, 1.0), 0.01}};
    for (const auto& [each, radius] : rows)
        EXPECT_DOUBLE_EQ(each.matchRadius(), radius);
}

TEST_F(Matching, DiagnosisNamesTheVerdict) {
    struct Row {
        TapPositionMapping binding;
        TapSample tap;
        const char* text;
    };
    const Row rows[] = {{binding({}), {0, 0}, "(not recorded)"},
                        {binding({{0, 0.5}}, 0.1),
                         {0.1, 0.5},
                         "[MATCH] nearest=0.1000 radius=0.1000 (samples=1, tolerance=1.0)"},
                        {binding({{0, 0.5}}, 0.1),
                         {0.100001, 0.5},
                         "[REJECT] nearest=0.1000 radius=0.1000 (samples=1, tolerance=1.0)"}};
    for (const Row& row : rows) {
        EXPECT_EQ(row.binding.diagnose(row.tap).toStdString(), row.text);
        store.clearAllBindings();
        store.add(row.binding);
        EXPECT_EQ(store.match(row.tap.x, row.tap.y).has_value(),
                  QByteArray(row.text).startsWith("[MATCH]"));
    }
}

} // namespace brimlow
