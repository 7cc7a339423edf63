// The store with many bindings: 10,000 are loaded and saved in 120 ms each and imported in 150 ms
// at most, on the main thread, and the times grow with their number.

#include "profiles/TapPositionMappings.h"
#include "tests/support/TestPlatform.h"

#include <benchmark/benchmark.h>

namespace {

using namespace brimlow;
using namespace Qt::StringLiterals;

TapPositionMapping ordinaryBinding(int number) {
    return {.id = QUuid::createUuid(),
            .name = u"Spot %1"_s.arg(number),
            .action = TapAction::focusWindow,
            .appName = u"org.gnome.TextEditor"_s,
            .windowTitle = u"Notes — Zürich"_s,
            .targetWindowID = 0x2400000U + static_cast<std::uint32_t>(number),
            .samples = {{0.123456789, number / 10'000.0}, {0.2, 0.3}, {0.3, 0.4}},
            .lastRecordedAt = platform::Platform::current().clock.wallClock()};
}

/// A described world with one profile of as many bindings as the benchmark asks for.
struct World {
    explicit World(const benchmark::State& state) {
        TapProfile profile = *store.activeProfile();
        for (int i = 0; i < state.range(0); ++i)
            profile.bindings.push_back(ordinaryBinding(i));
        store.profiles = {profile};
    }

    test::TestPlatform platform;
    TapPositionMappings store{0, platform.defaults};
};

/// From the file on, as at the start of the program.
void load(benchmark::State& state) {
    World world(state);
    while (state.KeepRunning()) {
        platform::NSUserDefaults defaults(world.platform.defaults.path(), world.platform.log);
        benchmark::DoNotOptimize(TapPositionMappings(0, defaults).activeProfile());
    }
    state.SetComplexityN(state.range(0));
}

/// One change of one binding, on disk.
void save(benchmark::State& state) {
    World world(state);
    const auto binding = world.store.activeProfile()->bindings.back();
    while (state.KeepRunning())
        world.store.update(binding);
    state.SetComplexityN(state.range(0));
}

/// The file's bytes become a second profile beside a small one, on disk.
void import(benchmark::State& state) {
    World world(state);
    const auto data = world.store.exportActiveProfileData().value();
    world.store.resetToDefaultLayout(10);
    const auto before = world.store.profiles.get();
    while (state.KeepRunning()) {
        world.store.importProfile(data, true);
        state.PauseTiming();
        world.store.profiles = before;
        world.store.activeProfileId = before.front().id;
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}

void numbers(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgName("bindings")->Arg(1'250)->Arg(2'500)->Arg(5'000)->Arg(10'000);
    benchmark->Complexity(benchmark::oN)->Unit(benchmark::kMillisecond)->UseRealTime();
}

BENCHMARK(load)->Apply(numbers);
BENCHMARK(save)->Apply(numbers);
BENCHMARK(import)->Apply(numbers);

} // namespace
