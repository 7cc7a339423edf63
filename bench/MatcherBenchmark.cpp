// Which binding a tap means is asked once per tap, on the main thread: 20 µs for 100 bindings is
// the budget, and the time may grow with the samples no faster than their number.

#include "profiles/TapPositionMappings.h"
#include "tests/support/TestPlatform.h"

#include <benchmark/benchmark.h>

namespace {

using namespace brimlow;

constexpr int bindingCount = 100;

TapPositionMapping bindingWith(std::int64_t sampleCount, int number) {
    TapPositionMapping binding{.id = QUuid::createUuid(), .explicitMatchRadius = 0.1};
    for (std::int64_t i = 0; i < sampleCount; ++i)
        binding.samples.push_back({number / 100.0, static_cast<double>(i % 10) / 10});
    return binding;
}

void match(benchmark::State& state) {
    test::TestPlatform world;
    TapPositionMappings store(0, world.defaults);
    TapProfile profile = *store.activeProfile();
    for (int i = 0; i < bindingCount; ++i)
        profile.bindings.push_back(bindingWith(state.range(0), i));
    store.profiles = {profile};
    double x = 0;
    while (state.KeepRunning()) {
        x = x < 0.99 ? x + 0.01 : 0;
        benchmark::DoNotOptimize(store.match(x, 0.05));
    }
    state.SetComplexityN(state.range(0));
}

BENCHMARK(match)
    ->ArgName("samples")
    ->Arg(1)
    ->Arg(10)
    ->Arg(100)
    ->Arg(1000)
    ->Complexity(benchmark::oN)
    ->Unit(benchmark::kMicrosecond);

} // namespace
