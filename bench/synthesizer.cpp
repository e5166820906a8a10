// The synthesizer's arithmetic: the calculator against its bare division, and the check of a whole table against the
// store reads that it cannot do without.
#include <benchmark/benchmark.h>

#include <cstdint>

#include "store_calls.h"
#include "synth/clsPLLSetting.h"
#include "synth/divider.h"
#include "synth/table_check.h"

namespace {

using namespace telvar;

constexpr std::int32_t reference = 12'800'000;
constexpr std::int16_t modulo = 8;
constexpr std::int32_t step = 12'500;

// Another frequency each time, so that nothing is computed once for all.
class Frequencies {
public:
    [[nodiscard]] std::int32_t next() noexcept {
        frequency_ = frequency_ < 470'000'000 ? frequency_ + step : 450'000'000;
        return frequency_;
    }

private:
    std::int32_t frequency_ = 450'000'000;
};

void bareDivision(benchmark::State& state) {
    Frequencies frequencies;
    for (auto _ : state) {
        const auto vco = frequencies.next();
        auto modulus = modulo;
        auto raster = step;
        auto ref = reference;
        benchmark::DoNotOptimize(modulus);
        benchmark::DoNotOptimize(raster);
        benchmark::DoNotOptimize(ref);
        const std::int32_t comparison = modulus * raster;
        const std::int32_t rest = vco / comparison - 8;
        const std::int32_t within = rest % 64;
        const std::int32_t main = rest / 64 - 3 - within % 8 - within / 8;
        bool valid = ref % comparison == 0 && vco % raster == 0 && main >= 0 && main <= synth::largestMain;
        benchmark::DoNotOptimize(valid);
    }
}
BENCHMARK(bareDivision);

void calculator(benchmark::State& state) {
    Frequencies frequencies;
    synth::clsPLLSetting setting;
    for (auto _ : state) {
        setting.InitialiseSettings(frequencies.next(), modulo, step, reference);
        bool valid = setting.IsValid();
        benchmark::DoNotOptimize(valid);
    }
}
BENCHMARK(calculator);

void checkReadsAlone(benchmark::State& state) {
    const auto store = bench::configuredTable();
    bench::CallList reads(*store);
    if (!synth::checkFrequencies(reads).good) {
        state.SkipWithError("the table is not good");
    }
    for (auto _ : state) {
        reads.repeat(*store);
    }
    state.counters["reads"] = static_cast<double>(reads.count());
}
BENCHMARK(checkReadsAlone)->Unit(benchmark::kMicrosecond);

void checkOfAWholeTable(benchmark::State& state) {
    const auto store = bench::configuredTable();
    for (auto _ : state) {
        auto verdict = synth::checkFrequencies(*store);
        benchmark::DoNotOptimize(verdict);
    }
}
BENCHMARK(checkOfAWholeTable)->Unit(benchmark::kMicrosecond);

}  // namespace
