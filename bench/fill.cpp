// A fill of all 255 channels against the bare cost of the store calls that it cannot do without: the backup's copy, one
// frequency a channel, and what the rendering of the rows reads.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <memory>

#include "editing/backup_table.h"
#include "model/memory_data_store.h"
#include "refreshed_control.h"
#include "store_calls.h"

namespace {

using namespace telvar;

void storeCallsOfAFill(benchmark::State& state) {
    const auto store = bench::configuredTable();
    bench::CallList reads(*store);
    bench::renderEveryRow(reads);
    editing::BackupTable backup(std::make_shared<model::MemoryDataStore>());
    for (auto _ : state) {
        backup.takeFrom(*store);
        for (std::int16_t channel = 1; channel <= model::channelCount; ++channel) {
            store->channel(channel).put(model::ChannelKey::TxFreq, std::int32_t{450'000'000 + 12'500 * (channel - 1)});
        }
        reads.repeat(*store);
    }
    state.counters["calls"] = static_cast<double>(reads.count()) + 255.0 + 2.0 * 255.0 * 28.0;
}
BENCHMARK(storeCallsOfAFill)->Unit(benchmark::kMicrosecond);

void fillOfEveryChannel(benchmark::State& state) {
    bench::RefreshedControl world;
    auto& dialog = world.control.frmFill();
    dialog.setChannels(1, model::channelCount);
    dialog.step_val.setText("12.5");
    bool higher = false;
    for (auto _ : state) {
        // Other frequencies each time: every cell of the column changes.
        higher = !higher;
        dialog.start_freq_val.setText(higher ? "460" : "450");
        dialog.ok_but.userPress();
    }
}
BENCHMARK(fillOfEveryChannel)->Unit(benchmark::kMicrosecond);

}  // namespace
