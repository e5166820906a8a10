// A full refresh of 255 configured channels against the bare cost of the store reads that it cannot do without.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <memory>
#include <string>

#include "control/channel_information.h"
#include "editing/columns.h"
#include "model/memory_data_store.h"
#include "store_calls.h"
#include "support/test_desktop.h"

namespace {

using namespace telvar;

void storeReadsAlone(benchmark::State& state) {
    const auto store = bench::configuredTable();
    bench::CallList reads(*store);
    for (std::int16_t channel = 1; channel <= model::channelCount; ++channel) {
        editing::renderRow({.store = reads, .channel = channel, .format = {}}, [](std::int16_t, const std::string&) {});
    }
    for (auto _ : state) {
        reads.repeat(*store);
    }
    state.counters["reads"] = static_cast<double>(reads.count());
}
BENCHMARK(storeReadsAlone)->Unit(benchmark::kMicrosecond);

void fullRefresh(benchmark::State& state) {
    tests::TestDesktop desktop;
    control::ChannelInformation control({.desktop = desktop,
                                         .makeTable = [] { return std::make_shared<model::MemoryDataStore>(); },
                                         .numberFormat = {},
                                         .logPath = {}});
    control.setCentralDataStore(bench::configuredTable());
    control.DistributeDataStoreLink();
    control.Prepare();
    for (auto _ : state) {
        control.UpdateControlsFromMemory();
    }
}
BENCHMARK(fullRefresh)->Unit(benchmark::kMicrosecond);

}  // namespace
