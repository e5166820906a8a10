// A full refresh of 255 configured channels against the bare cost of the store reads that it cannot do without.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "control/channel_information.h"
#include "editing/columns.h"
#include "model/memory_data_store.h"
#include "support/store_decorator.h"
#include "support/test_desktop.h"

namespace {

using namespace telvar;

// Every channel configured, so that every column is read.
[[nodiscard]] std::shared_ptr<model::MemoryDataStore> configuredTable() {
    auto store = std::make_shared<model::MemoryDataStore>();
    for (std::int16_t channel = 1; channel <= model::channelCount; ++channel) {
        store->channel(channel).put(model::ChannelKey::TxFreq, std::int32_t{450'000'000 + 12'500 * channel});
        store->channel(channel).put(model::ChannelKey::RxFreq, std::int32_t{455'000'000 + 12'500 * channel});
        store->channel(channel).put(model::ChannelKey::TxSub, 67.0F);
    }
    return store;
}

// Notes what a refresh asks of the store.
class ReadList final : public tests::StoreDecorator {
public:
    using StoreDecorator::StoreDecorator;
    std::vector<tests::StoreCall> reads;

protected:
    void onCall(const tests::StoreCall& call) override { reads.push_back(call); }
};

void storeReadsAlone(benchmark::State& state) {
    const auto store = configuredTable();
    ReadList list(*store);
    for (std::int16_t channel = 1; channel <= model::channelCount; ++channel) {
        editing::renderRow({.store = list, .channel = channel, .format = {}}, [](std::int16_t, const std::string&) {});
    }
    model::DataStore& asked = *store;
    for (auto _ : state) {
        for (const auto& read : list.reads) {
            auto value = read.kind == tests::StoreCall::Kind::Get ? asked.get(read.member)
                                                                  : asked.readChannel(read.index, read.key);
            benchmark::DoNotOptimize(value);
        }
    }
    state.counters["reads"] = static_cast<double>(list.reads.size());
}
BENCHMARK(storeReadsAlone)->Unit(benchmark::kMicrosecond);

void fullRefresh(benchmark::State& state) {
    tests::TestDesktop desktop;
    control::ChannelInformation control({.desktop = desktop,
                                         .makeTable = [] { return std::make_shared<model::MemoryDataStore>(); },
                                         .numberFormat = {},
                                         .logPath = {}});
    control.setCentralDataStore(configuredTable());
    control.DistributeDataStoreLink();
    control.Prepare();
    for (auto _ : state) {
        control.UpdateControlsFromMemory();
    }
}
BENCHMARK(fullRefresh)->Unit(benchmark::kMicrosecond);

}  // namespace
