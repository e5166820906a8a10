// Names and dispatch numbers of the store's and the records' members, made from the tables that the model has of them.
// The type library says the same; a test compares the two.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "com/store/name_table.h"
#include "model/channel_key.h"
#include "model/store_member.h"

namespace telvar::com {

// A record's key at position n of the model's table has the number n + 1, a store's member the number n + 3.
inline constexpr std::int32_t firstKeyId = 1;
inline constexpr std::int32_t firstMemberId = 3;
inline constexpr std::int32_t channelTableId = 1;
inline constexpr std::int32_t configRecordsId = 2;

inline constexpr std::array<NamedMember, 18> furtherStoreMembers{{
    {"ChannelTable", channelTableId},
    {"ConfigRecords", configRecordsId},
    {"SetPotValue", 28},
    {"PotValue", 29},
    {"EnterChannelSelect", 30},
    {"AutomaticSelect", 31},
    {"CheckKey", 32},
    {"CtcssTone", 33},
    {"SendPermitted", 34},
    {"FollowSteps", 35},
    {"NewTable", 36},
    {"Open", 37},
    {"Save", 38},
    {"SaveAs", 39},
    {"Close", 40},
    {"FilePath", 41},
    {"Revision", 42},
    {"Modified", 43},
}};

namespace detail {

[[nodiscard]] consteval auto recordMembers() {
    std::array<NamedMember, model::channelKeyCount> members;
    std::ranges::transform(model::channelKeys, members.begin(), [](const model::ChannelKeyInfo& info) {
        return NamedMember{info.name, firstKeyId + static_cast<std::int32_t>(info.key)};
    });
    return members;
}

[[nodiscard]] consteval auto dataStoreMembers() {
    std::array<NamedMember, model::storeMemberCount + furtherStoreMembers.size()> members;
    const auto rest =
        std::ranges::transform(model::storeMembers, members.begin(), [](const model::StoreMemberInfo& info) {
            return NamedMember{info.name, firstMemberId + static_cast<std::int32_t>(info.member)};
        });
    std::ranges::copy(furtherStoreMembers, rest.out);
    return members;
}

}  // namespace detail

inline constexpr NameTable recordNames(detail::recordMembers());
inline constexpr NameTable dataStoreNames(detail::dataStoreMembers());

}  // namespace telvar::com
