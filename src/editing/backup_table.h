// A copy of the central table that undo or redo puts back: 28 keys of every channel. The P25 keys and TTRAnalogDataMode
// are not part of it, so undo and redo leave them alone.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <utility>

#include "model/data_store.h"

namespace telvar::editing {

// In the order in which they are copied.
inline constexpr std::array copiedKeys{
    model::ChannelKey::TxFreq,      model::ChannelKey::RxFreq,       model::ChannelKey::TxSub,
    model::ChannelKey::RxSub,       model::ChannelKey::ModeBits,     model::ChannelKey::TxLevel,
    model::ChannelKey::SynthStep,   model::ChannelKey::AccelInt,     model::ChannelKey::BinMain,
    model::ChannelKey::Modulo,      model::ChannelKey::AccelProp,    model::ChannelKey::TxPower,
    model::ChannelKey::VCODev,      model::ChannelKey::RefOscFreq,   model::ChannelKey::RefOscDev,
    model::ChannelKey::scan,        model::ChannelKey::TxCTCSSDCS,   model::ChannelKey::TxDCSIndex,
    model::ChannelKey::RxCTCSSDCS,  model::ChannelKey::RxDCSIndex,   model::ChannelKey::NBVCODev,
    model::ChannelKey::NBRefOscDev, model::ChannelKey::NBRefOscFreq, model::ChannelKey::RxBinMain,
    model::ChannelKey::RxSynthStep, model::ChannelKey::RxAccelInt,   model::ChannelKey::RxModulo,
    model::ChannelKey::RxAccelProp};
static_assert(copiedKeys.size() == 28);

// A private channel table that holds the copy, and beside it what such a table would refuse or change: a foreign store
// may have Null, nothing or a text where a number is expected, or a number for True, and gets it back as it was.
class BackupTable {
public:
    explicit BackupTable(model::DataStorePointer table) noexcept : table_(std::move(table)) {}

    [[nodiscard]] const model::DataStorePointer& table() const noexcept { return table_; }

    // Channel by channel, key by key. A failing store leaves the destination as far as it got.
    void takeFrom(model::DataStore& live);
    void giveTo(model::DataStore& live) const;

private:
    void keep(std::int16_t index, model::ChannelKey key, const base::Value& value);
    [[nodiscard]] base::Value kept(std::int16_t index, model::ChannelKey key) const;

    model::DataStorePointer table_;
    std::map<std::pair<std::int16_t, model::ChannelKey>, base::Value> beside_;
};

}  // namespace telvar::editing
