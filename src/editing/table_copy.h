// The whole-table copy of undo and redo: 28 keys of every channel. The P25 keys and TTRAnalogDataMode are not part of
// it, so undo and redo leave them alone.
#pragma once

#include <array>

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

// Channel by channel, key by key. A failing store leaves the destination as far as it got.
void copyTable(model::DataStore& from, model::DataStore& to);

}  // namespace telvar::editing
