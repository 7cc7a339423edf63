#include "profiles/TapPositionMappings.h"
#include "tests/support/TestPlatform.h"

#include <gtest/gtest.h>

namespace brimlow {

using namespace Qt::StringLiterals;

namespace {

class Matching : public testing::Test {
protected:
    void bind(const char16_t* name, std::vector<TapSample> samples,
              std::optional<double> radius = {}, double tolerance = 1.0,
              TapAction action = TapAction::closeWindow) {
        store.add({.id = QUuid::createUuid(),
                   .name = QString::fromUtf16(name),
                   .action = action,
                   .samples = std::move(samples),
                   .matchTolerance = tolerance,
                   .explicitMatchRadius = radius});
    }
    std::string match(double x, double y) const {
        const auto binding = store.match(x, y);
        return binding ? binding->name.toStdString() : "nothing";
    }

    test::TestPlatform world;
    TapPositionMappings store{0, world.defaults};
};

} // namespace

TEST_F(Matching, NothingMatchesWithoutSamples) {
    bind(u"Unrecorded", {}, 10.0);
    EXPECT_EQ(match(0.5, 0.5), "nothing");
    EXPECT_FALSE(store.hasAnyRecorded());
    bind(u"Recorded", {{0.5, 0.5}});
    EXPECT_TRUE(store.hasAnyRecorded());
    store.activeProfileId = QUuid();
    EXPECT_EQ(match(0.5, 0.5), "nothing");
    EXPECT_FALSE(store.hasAnyRecorded());
}

TEST_F(Matching, TheRadiusItselfIsInside) {
    bind(u"Edge", {{0, 0.5}}, 0.1);
    EXPECT_EQ(match(0.0999, 0.5), "Edge");
    EXPECT_EQ(match(0.1, 0.5), "Edge");
    EXPECT_EQ(match(0.1001, 0.5), "nothing");
}

TEST_F(Matching, WhatIsNotANumberMatchesNothing) {
    bind(u"Odd", {{0, 0.5}, {0.1, 0.5}}, {}, std::nan(""));
    EXPECT_EQ(match(0, 0.5), "nothing");
    bind(u"Edge", {{0, 0.5}}, 0.1);
    EXPECT_EQ(match(0, 0.5), "Edge");
    EXPECT_EQ(match(std::nan(""), 0.5), "nothing");
}

TEST_F(Matching, TheNearestCentreWinsAmongTheEligible) {
    bind(u"A", {{0.2, 0.5}, {0.6, 0.5}}); // radius 0.6, centre (0.4, 0.5)
    bind(u"B", {{0.45, 0.5}}, 0.1);
    EXPECT_EQ(match(0.42, 0.5), "A");
    EXPECT_EQ(match(0.43, 0.5), "B");
    EXPECT_EQ(match(0.56, 0.5), "A"); // beyond B's reach
}

TEST_F(Matching, TheFirstOfEqualsWinsWhateverItDoes) {
    bind(u"Inert", {{0.5, 0.5}}, 0.1, 1.0, TapAction::none);
    bind(u"Twin", {{0.5, 0.5}}, 0.1);
    EXPECT_EQ(match(0.52, 0.5), "Inert");
}

} // namespace brimlow
