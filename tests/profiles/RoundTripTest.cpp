// Whatever the store holds comes back from the preferences, and from a file.

#include "profiles/TapPositionMappings.h"
#include "tests/support/TestPlatform.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <random>

namespace brimlow {

using namespace Qt::StringLiterals;

namespace {

/// Makes up records: any text, any finite number, any field absent.
class Imagination {
public:
    explicit Imagination(unsigned seed) : random_(seed) {}

    std::vector<TapProfile> profiles() {
        std::vector<TapProfile> result(1 + below(4));
        for (TapProfile& profile : result) {
            profile = {QUuid::createUuid(), text(), {}};
            for (unsigned count = below(12); count > 0; --count)
                profile.bindings.push_back(binding());
        }
        return result;
    }
    unsigned below(unsigned limit) { return static_cast<unsigned>(random_()) % limit; }

private:
    TapPositionMapping binding() {
        TapPositionMapping result{.id = QUuid::createUuid(),
                                  .name = text(),
                                  .action = allTapActions[below(allTapActions.size())],
                                  .appName = maybe(text()),
                                  .windowTitle = maybe(text()),
                                  .targetWindowID = maybe(static_cast<std::uint32_t>(random_())),
                                  .lastRecordedAt = maybe(date()),
                                  .matchTolerance = number(),
                                  .explicitMatchRadius = maybe(number()),
                                  .minimumPressure = number(),
                                  .requireClick = below(2) == 0,
                                  .clickForce = number()};
        for (unsigned count = below(5); count > 0; --count)
            result.samples.push_back({number(), number()});
        return result;
    }

    template<typename T>
    std::optional<T> maybe(T value) {
        return below(3) == 0 ? std::nullopt : std::optional(std::move(value));
    }

    QString text() {
        constexpr auto odd =
            std::to_array(U"\0\x01\t\n\"\\/'{}[]:,%& \u00a0\u2028ü\ufeff\uffff🦊\U0010ffff");
        QString result;
        for (unsigned count = below(20); count > 0; --count) {
            const char32_t ordinary = U'a' + below(26);
            result += QChar::fromUcs4(below(2) == 0 ? ordinary : odd[below(odd.size())]);
        }
        return result;
    }

    /// A plain one, or any bits that are a number.
    double number() {
        for (;;) {
            const auto value = std::bit_cast<double>(random_());
            if (below(2) == 0)
                return below(1000) / 1000.0;
            if (std::isfinite(value))
                return value;
        }
    }

    /// From 1993 to 2037, in microseconds: these survive the change of the epoch exactly.
    platform::Date date() { return {750e6 + below(1'400'000'000) + below(1'000'000) / 1e6}; }

    std::mt19937_64 random_;
};

/// What remains of `binding` under another id.
TapPositionMapping asImported(TapPositionMapping binding, const QUuid& id) {
    binding.id = id;
    binding.targetWindowID.reset();
    if (auto& date = binding.lastRecordedAt)
        date->secondsSince1970 = std::floor(date->secondsSince1970);
    return binding;
}

} // namespace

TEST(RoundTrip, StoresSurviveThePreferencesAndProfilesAFile) {
    test::TestPlatform world;
    TapPositionMappings store(10, world.defaults);
    for (unsigned seed = 0; seed < 300; ++seed) {
        SCOPED_TRACE(seed);
        Imagination imagination(seed);
        const auto profiles = imagination.profiles();
        const auto& active = profiles[imagination.below(static_cast<unsigned>(profiles.size()))];
        store.profiles = profiles;
        store.activeProfileId = active.id;

        platform::NSUserDefaults again(world.defaults.path(), world.log);
        const TapPositionMappings loaded(10, again);
        ASSERT_EQ(loaded.profiles.get(), profiles);
        ASSERT_EQ(loaded.activeProfileId.get(), active.id);

        const auto data = store.exportActiveProfileData();
        ASSERT_TRUE(data);
        store.importProfile(*data, true);
        const auto& bindings = store.activeProfile()->bindings;
        ASSERT_EQ(bindings.size(), active.bindings.size());
        for (std::size_t i = 0; i < bindings.size(); ++i)
            ASSERT_EQ(bindings[i], asImported(active.bindings[i], bindings[i].id));
    }
    EXPECT_TRUE(world.log.take().isEmpty());
}

} // namespace brimlow
