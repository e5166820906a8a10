// A full refresh of 255 configured channels against the bare cost of the store reads that it cannot do without.
#include <benchmark/benchmark.h>

#include "refreshed_control.h"
#include "store_calls.h"

namespace {

using namespace telvar;

void storeReadsAlone(benchmark::State& state) {
    const auto store = bench::configuredTable();
    bench::CallList reads(*store);
    bench::renderEveryRow(reads);
    for (auto _ : state) {
        reads.repeat(*store);
    }
    state.counters["reads"] = static_cast<double>(reads.count());
}
BENCHMARK(storeReadsAlone)->Unit(benchmark::kMicrosecond);

void fullRefresh(benchmark::State& state) {
    bench::RefreshedControl world;
    for (auto _ : state) {
        world.control.UpdateControlsFromMemory();
    }
}
BENCHMARK(fullRefresh)->Unit(benchmark::kMicrosecond);

}  // namespace
