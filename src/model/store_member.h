// The radio-wide members of a data store, by their published names: what the radio can do, how it is built, and the
// state that the host, the control and the radio link share.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace telvar::model {

enum class StoreMember : std::uint8_t {
    BandwidthSwitchable,
    FCCNarrowBandRadio,
    HardwareRevision,
    P25BoardFitted,
    RadioConfigurationCode,
    TxReferenceFrequency,
    RxReferenceFrequency,
    LocalOscOffset,
    TxSynthChipInfo,
    RxSynthChipInfo,
    DCSOptionFitted,
    ChannelSpacing,
    MessageTitle,
    DatabaseTitle,
    TableOpen,
    SelectedChannel,
    GridLoaded,
    DataModified,
    ChannelDataModified,
    CommsBusy,
    CommsTask,
    ProgressCount,
    ShowSendWarning,
    SendInProgress,
    ChannelChangeAllowed,
};

inline constexpr std::size_t storeMemberCount = 25;

enum class MemberKind : std::uint8_t { Boolean, Integer16, Integer32, Single, Text };

struct StoreMemberInfo {
    StoreMember member;
    std::string_view name;
    MemberKind kind;
    bool describesRadio;  // part of the radio's configuration, and so of a table file; the others are state
};

inline constexpr std::array<StoreMemberInfo, storeMemberCount> storeMembers{{
    {StoreMember::BandwidthSwitchable, "BandwidthSwitchable", MemberKind::Boolean, true},
    {StoreMember::FCCNarrowBandRadio, "FCCNarrowBandRadio", MemberKind::Boolean, true},
    {StoreMember::HardwareRevision, "HardwareRevision", MemberKind::Single, true},
    {StoreMember::P25BoardFitted, "P25BoardFitted", MemberKind::Boolean, true},
    {StoreMember::RadioConfigurationCode, "RadioConfigurationCode", MemberKind::Integer32, true},
    {StoreMember::TxReferenceFrequency, "TxReferenceFrequency", MemberKind::Integer32, true},  // Hz
    {StoreMember::RxReferenceFrequency, "RxReferenceFrequency", MemberKind::Integer32, true},  // Hz
    {StoreMember::LocalOscOffset, "LocalOscOffset", MemberKind::Integer32, true},              // Hz, signed
    {StoreMember::TxSynthChipInfo, "TxSynthChipInfo", MemberKind::Text, true},
    {StoreMember::RxSynthChipInfo, "RxSynthChipInfo", MemberKind::Text, true},
    {StoreMember::DCSOptionFitted, "DCSOptionFitted", MemberKind::Boolean, true},
    {StoreMember::ChannelSpacing, "ChannelSpacing", MemberKind::Integer32, true},  // Hz
    {StoreMember::MessageTitle, "MessageTitle", MemberKind::Text, false},
    {StoreMember::DatabaseTitle, "DatabaseTitle", MemberKind::Text, false},
    {StoreMember::TableOpen, "TableOpen", MemberKind::Boolean, false},
    {StoreMember::SelectedChannel, "SelectedChannel", MemberKind::Integer16, false},
    {StoreMember::GridLoaded, "GridLoaded", MemberKind::Boolean, false},
    {StoreMember::DataModified, "DataModified", MemberKind::Boolean, false},
    {StoreMember::ChannelDataModified, "ChannelDataModified", MemberKind::Boolean, false},
    {StoreMember::CommsBusy, "CommsBusy", MemberKind::Boolean, false},
    {StoreMember::CommsTask, "CommsTask", MemberKind::Integer16, false},
    {StoreMember::ProgressCount, "ProgressCount", MemberKind::Integer16, false},
    {StoreMember::ShowSendWarning, "ShowSendWarning", MemberKind::Boolean, false},
    {StoreMember::SendInProgress, "SendInProgress", MemberKind::Boolean, false},
    {StoreMember::ChannelChangeAllowed, "ChannelChangeAllowed", MemberKind::Boolean, false},
}};

[[nodiscard]] constexpr const StoreMemberInfo& infoOf(StoreMember member) noexcept {
    return storeMembers[static_cast<std::size_t>(member)];
}

[[nodiscard]] constexpr std::optional<StoreMember> storeMemberNamed(std::string_view name) noexcept {
    for (const auto& info : storeMembers) {
        if (info.name == name) {
            return info.member;
        }
    }
    return std::nullopt;
}

namespace detail {
[[nodiscard]] constexpr bool membersStandInOrder() {
    for (std::size_t at = 0; at < storeMemberCount; ++at) {
        if (static_cast<std::size_t>(storeMembers[at].member) != at) {
            return false;
        }
    }
    return true;
}
}  // namespace detail
static_assert(detail::membersStandInOrder());

}  // namespace telvar::model
