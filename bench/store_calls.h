// What the benchmarks measure against: a table in which every column is read, and the calls that a routine makes of a
// store, repeated without the routine.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <memory>
#include <vector>

#include "model/memory_data_store.h"
#include "support/store_decorator.h"

namespace telvar::bench {

// All 255 channels, transmitting on the 12.5 kHz raster from 450.0125 MHz and receiving 5 MHz above.
[[nodiscard]] inline std::shared_ptr<model::MemoryDataStore> configuredTable() {
    constexpr std::int32_t raster = 12'500;
    auto store = std::make_shared<model::MemoryDataStore>();
    for (std::int16_t channel = 1; channel <= model::channelCount; ++channel) {
        store->channel(channel).put(model::ChannelKey::TxFreq, std::int32_t{450'000'000 + raster * channel});
        store->channel(channel).put(model::ChannelKey::RxFreq, std::int32_t{455'000'000 + raster * channel});
        store->channel(channel).put(model::ChannelKey::TxSub, 67.0F);
    }
    return store;
}

// Notes what a routine asks of a store, and asks the same again of any store.
class CallList final : public tests::StoreDecorator {
public:
    using StoreDecorator::StoreDecorator;

    [[nodiscard]] std::size_t count() const noexcept { return calls_.size(); }
    void forget() noexcept {
        calls_.clear();
        written_.clear();
    }
    // Reads, writes of channels and the scaling; what else a routine does to a store is not repeated.
    void repeat(model::DataStore& store) const {
        using Kind = tests::StoreCall::Kind;
        auto written = written_.begin();
        for (const auto& call : calls_) {
            if (call.kind == Kind::ReadChannel) {
                benchmark::DoNotOptimize(store.readChannel(call.index, call.key));
            } else if (call.kind == Kind::WriteChannel) {
                store.writeChannel(call.index, call.key, *written++);
            } else if (call.kind == Kind::Get) {
                benchmark::DoNotOptimize(store.get(call.member));
            } else if (call.kind == Kind::ReferenceDividerScaling) {
                benchmark::DoNotOptimize(store.referenceDividerScaling());
            }
        }
    }
    void writeChannel(std::int16_t index, model::ChannelKey key, const base::Value& value) override {
        written_.push_back(value);
        StoreDecorator::writeChannel(index, key, value);
    }

protected:
    void onCall(const tests::StoreCall& call) override { calls_.push_back(call); }

private:
    std::vector<tests::StoreCall> calls_;
    std::vector<base::Value> written_;
};

}  // namespace telvar::bench
