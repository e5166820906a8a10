// The central data store as the control sees it: the only owner of channel data, asked afresh for every single value.
// Every call may fail with a base::Failure that describes what the store said; each calling routine decides what
// follows.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "base/conversion.h"
#include "base/pinned.h"
#include "base/value.h"
#include "model/channel_key.h"
#include "model/store_member.h"

namespace telvar::model {

inline constexpr std::int16_t channelCount = 255;

[[nodiscard]] constexpr bool isChannel(double number) noexcept { return number >= 1 && number <= channelCount; }

class DataStore;

// One record of a store's channel table; only addresses it and holds nothing.
class ChannelRecord {
public:
    ChannelRecord(DataStore& store, std::int16_t index) noexcept : store_(store), index_(index) {}
    [[nodiscard]] base::Value get(ChannelKey key) const;
    void put(ChannelKey key, const base::Value& value) const;

private:
    DataStore& store_;
    std::int16_t index_;
};

// What a store answers to `ChannelTable`: element 0 is channel 1, element 254 channel 255.
class ChannelTableOf {
public:
    explicit ChannelTableOf(DataStore& store) noexcept : store_(store) {}
    [[nodiscard]] ChannelRecord operator[](std::int16_t index) const noexcept { return {store_, index}; }

private:
    DataStore& store_;
};

class DataStore : base::Pinned {
public:
    virtual ~DataStore() = default;

    // `store.ChannelTable()[7].get(ChannelKey::TxFreq)` is channel 8's transmit frequency.
    [[nodiscard]] ChannelTableOf ChannelTable() noexcept { return ChannelTableOf(*this); }
    // The same, by channel number 1 to 255. The index is computed in 16 bits; -32768 is an arithmetic fault.
    [[nodiscard]] ChannelRecord channel(std::int16_t number);

    // One value of the record at `index`, 0 to 254; any other index is a failure. The table itself is asked for each
    // time.
    [[nodiscard]] virtual base::Value readChannel(std::int16_t index, ChannelKey key) = 0;
    virtual void writeChannel(std::int16_t index, ChannelKey key, const base::Value& value) = 0;

    // Radio-wide values and shared state.
    [[nodiscard]] virtual base::Value get(StoreMember member) = 0;
    virtual void put(StoreMember member, const base::Value& value) = 0;

    // Exponent `sm` of the reference-divider scaling, from configuration record 0.
    [[nodiscard]] virtual base::Value referenceDividerScaling() = 0;
    // Stages one potentiometer level for the live update; index 0 to 3.
    virtual void SetPotValue(std::int16_t index, std::uint8_t level) = 0;
    // The level staged last, which the radio link sends; index 0 to 3.
    [[nodiscard]] virtual std::uint8_t PotValue(std::int16_t index) = 0;
    // The store enters its channel-select state before the link switches the radio.
    virtual void EnterChannelSelect() = 0;
    // Whether the radio is to follow every step of the channel number; asked with the argument 2.
    [[nodiscard]] virtual bool AutomaticSelect(std::int16_t query) = 0;
    // Whether a typed character (its code) may enter a numeric field.
    [[nodiscard]] virtual bool CheckKey(std::int16_t code) = 0;
    // One entry of the CTCSS table, 0 to 38, in hertz.
    [[nodiscard]] virtual float CtcssTone(std::int16_t index) = 0;
    // Whether the store lets a send go ahead; a store without an opinion permits it.
    [[nodiscard]] virtual bool SendPermitted() = 0;
};

// Shared ownership: the host, the control and its forms hold the same store.
using DataStorePointer = std::shared_ptr<DataStore>;

}  // namespace telvar::model
