#include "model/store_member.h"

#include <array>

#include <gtest/gtest.h>

namespace telvar::tests {
namespace {

using model::MemberKind;

struct ExpectedMember {
    std::string_view name;
    MemberKind kind;
    bool describesRadio;
};

constexpr std::array expectedMembers{
    ExpectedMember{"BandwidthSwitchable", MemberKind::Boolean, true},
    ExpectedMember{"FCCNarrowBandRadio", MemberKind::Boolean, true},
    ExpectedMember{"HardwareRevision", MemberKind::Single, true},
    ExpectedMember{"P25BoardFitted", MemberKind::Boolean, true},
    ExpectedMember{"RadioConfigurationCode", MemberKind::Integer32, true},
    ExpectedMember{"TxReferenceFrequency", MemberKind::Integer32, true},
    ExpectedMember{"RxReferenceFrequency", MemberKind::Integer32, true},
    ExpectedMember{"LocalOscOffset", MemberKind::Integer32, true},
    ExpectedMember{"TxSynthChipInfo", MemberKind::Text, true},
    ExpectedMember{"RxSynthChipInfo", MemberKind::Text, true},
    ExpectedMember{"DCSOptionFitted", MemberKind::Boolean, true},
    ExpectedMember{"ChannelSpacing", MemberKind::Integer32, true},
    ExpectedMember{"MessageTitle", MemberKind::Text, false},
    ExpectedMember{"DatabaseTitle", MemberKind::Text, false},
    ExpectedMember{"TableOpen", MemberKind::Boolean, false},
    ExpectedMember{"SelectedChannel", MemberKind::Integer16, false},
    ExpectedMember{"GridLoaded", MemberKind::Boolean, false},
    ExpectedMember{"DataModified", MemberKind::Boolean, false},
    ExpectedMember{"ChannelDataModified", MemberKind::Boolean, false},
    ExpectedMember{"CommsBusy", MemberKind::Boolean, false},
    ExpectedMember{"CommsTask", MemberKind::Integer16, false},
    ExpectedMember{"ProgressCount", MemberKind::Integer16, false},
    ExpectedMember{"ShowSendWarning", MemberKind::Boolean, false},
    ExpectedMember{"SendInProgress", MemberKind::Boolean, false},
    ExpectedMember{"ChannelChangeAllowed", MemberKind::Boolean, false},
};

TEST(StoreMembers, HaveTheirPublishedNamesAndKinds) {
    ASSERT_EQ(model::storeMembers.size(), expectedMembers.size());
    for (const auto& expected : expectedMembers) {
        const auto member = model::storeMemberNamed(expected.name);
        ASSERT_TRUE(member.has_value()) << expected.name;
        const auto& info = model::infoOf(*member);
        EXPECT_EQ(info.member, *member) << expected.name;
        EXPECT_EQ(info.name, expected.name);
        EXPECT_EQ(info.kind, expected.kind) << expected.name;
        EXPECT_EQ(info.describesRadio, expected.describesRadio) << expected.name;
    }
}

TEST(StoreMembers, AreFoundByTheirExactSpellingOnly) {
    EXPECT_EQ(model::storeMemberNamed("commsbusy"), std::nullopt);
    EXPECT_EQ(model::storeMemberNamed(""), std::nullopt);
    EXPECT_EQ(model::storeMemberNamed("ChannelTable"), std::nullopt);
}

}  // namespace
}  // namespace telvar::tests
