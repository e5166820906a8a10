// What a table file holds, as values: the title, the radio, 255 channels, and whatever members this release does not
// know, so that saving does not lose what a later release or another program has written.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "base/value.h"
#include "model/channel_key.h"
#include "model/memory_data_store.h"
#include "model/store_member.h"

namespace telvar::store {

struct UnknownMember {
    std::string name;
    std::string json;  // its value on one line
    bool operator==(const UnknownMember&) const = default;
};
using UnknownMembers = std::vector<UnknownMember>;

// The radio-wide value that no store member names: the exponent of the reference-divider scaling.
inline constexpr std::string_view scalingName = "sm";

using ChannelValues = std::array<base::Value, model::channelKeyCount>;

struct TableContents {
    std::string title;  // UTF-8, may be empty
    // By StoreMember; those that do not describe the radio are not part of a table and hold Empty.
    std::array<base::Value, model::storeMemberCount> radio;
    std::int32_t referenceDividerScaling = 0;
    std::vector<ChannelValues> channels;  // 255, channel 1 first

    UnknownMembers unknown;
    UnknownMembers unknownOfRadio;
    std::map<std::int16_t, UnknownMembers> unknownOfChannel;  // by channel number

    bool operator==(const TableContents&) const = default;
};

// An empty table with the default radio.
[[nodiscard]] TableContents emptyTable();

// The values of a store. Title and unknown members stay empty.
[[nodiscard]] TableContents contentsOf(model::MemoryDataStore& store);

// Puts the radio and all channels into a store; shared state is left alone.
void putInto(model::MemoryDataStore& store, const TableContents& contents);

}  // namespace telvar::store
