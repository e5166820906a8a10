#include "model/memory_data_store.h"

#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "base/failure.h"
#include "support/table_builder.h"

namespace telvar::tests {
namespace {

using base::Empty;
using base::Unusable;
using base::Value;
using model::ChannelKey;
using model::MemoryDataStore;
using model::StoreMember;

[[nodiscard]] Value text(std::string_view characters) { return base::textValue(characters); }

TEST(MemoryStore, StartsWithEmptyChannels) {
    MemoryDataStore store;
    for (const std::int16_t index : {std::int16_t{0}, std::int16_t{127}, std::int16_t{254}}) {
        EXPECT_EQ(store.readChannel(index, ChannelKey::TxFreq), Value{std::int32_t{0}});
        EXPECT_EQ(store.readChannel(index, ChannelKey::RxSynthStep), Value{std::int32_t{12500}});
        EXPECT_EQ(store.readChannel(index, ChannelKey::Modulo), Value{std::int32_t{1}});
        EXPECT_EQ(store.readChannel(index, ChannelKey::NBRefOscDev), Value{std::int32_t{128}});
        EXPECT_EQ(store.readChannel(index, ChannelKey::scan), Value{false});
        EXPECT_EQ(store.readChannel(index, ChannelKey::P25TalkgroupID), text("0000"));
    }
}

TEST(MemoryStore, StartsWithADefaultRadio) {
    const std::vector<std::pair<StoreMember, Value>> expected{
        {StoreMember::BandwidthSwitchable, true},
        {StoreMember::FCCNarrowBandRadio, false},
        {StoreMember::HardwareRevision, 3.0F},
        {StoreMember::P25BoardFitted, false},
        {StoreMember::RadioConfigurationCode, std::int32_t{0}},
        {StoreMember::TxReferenceFrequency, std::int32_t{12'800'000}},
        {StoreMember::RxReferenceFrequency, std::int32_t{12'800'000}},
        {StoreMember::LocalOscOffset, std::int32_t{21'400'000}},
        {StoreMember::TxSynthChipInfo, text("Fitted")},
        {StoreMember::RxSynthChipInfo, text("Fitted")},
        {StoreMember::DCSOptionFitted, true},
        {StoreMember::ChannelSpacing, std::int32_t{25'000}},
        {StoreMember::MessageTitle, text("Telvar")},
        {StoreMember::DatabaseTitle, text("")},
        {StoreMember::TableOpen, false},
        {StoreMember::SelectedChannel, std::int16_t{1}},
        {StoreMember::GridLoaded, false},
        {StoreMember::DataModified, false},
        {StoreMember::ChannelDataModified, false},
        {StoreMember::CommsBusy, false},
        {StoreMember::CommsTask, std::int16_t{0}},
        {StoreMember::ProgressCount, std::int16_t{0}},
        {StoreMember::ShowSendWarning, true},
        {StoreMember::SendInProgress, false},
        {StoreMember::ChannelChangeAllowed, true},
    };
    ASSERT_EQ(expected.size(), model::storeMemberCount);
    MemoryDataStore store;
    for (const auto& [member, value] : expected) {
        EXPECT_EQ(store.get(member), value) << model::infoOf(member).name;
    }
    EXPECT_EQ(store.referenceDividerScaling(), Value{std::int32_t{0}});
    EXPECT_FALSE(store.AutomaticSelect(2));
    EXPECT_TRUE(store.SendPermitted());
}

TEST(MemoryStore, ChannelOneIsElementZeroAndChannel255IsElement254) {
    MemoryDataStore store;
    store.channel(1).put(ChannelKey::TxFreq, 145'000'000);
    store.channel(255).put(ChannelKey::TxFreq, 446'000'000);
    EXPECT_EQ(store.ChannelTable()[0].get(ChannelKey::TxFreq), Value{145'000'000});
    EXPECT_EQ(store.ChannelTable()[254].get(ChannelKey::TxFreq), Value{446'000'000});
    EXPECT_EQ(store.readChannel(1, ChannelKey::TxFreq), Value{0});
    EXPECT_EQ(store.readChannel(253, ChannelKey::TxFreq), Value{0});
}

TEST(MemoryStore, ARecordOutsideTheTableIsAFailure) {
    MemoryDataStore store;
    for (const int index : {-32768, -1, 255, 256, 32767}) {
        const auto element = static_cast<std::int16_t>(index);
        EXPECT_THROW((void)store.readChannel(element, ChannelKey::TxFreq), base::SubscriptFailure) << index;
        EXPECT_THROW(store.writeChannel(element, ChannelKey::TxFreq, 0), base::SubscriptFailure) << index;
        EXPECT_THROW((void)store.channelValue(element, ChannelKey::TxFreq), base::SubscriptFailure) << index;
    }
    EXPECT_THROW((void)store.channel(0).get(ChannelKey::TxFreq), base::SubscriptFailure);
    EXPECT_THROW((void)store.channel(256).get(ChannelKey::TxFreq), base::SubscriptFailure);
}

TEST(MemoryStore, TheIndexOfTheSmallestChannelNumberIsAnArithmeticFault) {
    MemoryDataStore store;
    EXPECT_THROW((void)store.channel(std::numeric_limits<std::int16_t>::min()), base::ArithmeticFault);
}

TEST(MemoryStore, EveryKeyOfEveryChannelHasItsOwnPlace) {
    const auto store = fullStore();
    MemoryDataStore again;
    for (std::int16_t channel = 255; channel >= 1; --channel) {
        fillDistinct(again, channel);
    }
    EXPECT_EQ(tableText(*store), tableText(again));
    store->channel(100).put(ChannelKey::RxSub, 123.0F);
    EXPECT_NE(tableText(*store), tableText(again));
    again.channel(100).put(ChannelKey::RxSub, 123.0F);
    EXPECT_EQ(tableText(*store), tableText(again));
}

TEST(MemoryStore, BooleanKeysBecomeTrueOrFalse) {
    MemoryDataStore store;
    for (const auto key : {ChannelKey::TxCTCSSDCS, ChannelKey::RxCTCSSDCS, ChannelKey::scan,
                           ChannelKey::P25TransmitMode, ChannelKey::p25RepeaterEnable, ChannelKey::TTRAnalogDataMode}) {
        for (const auto& value : std::vector<Value>{1, -1, 2, 0.5, true, text("true"), std::int64_t{7}}) {
            store.writeChannel(3, key, false);
            store.writeChannel(3, key, value);
            EXPECT_EQ(store.readChannel(3, key), Value{true}) << model::infoOf(key).name;
        }
        for (const auto& value : std::vector<Value>{0, 0.0, false, Empty{}, text("False"), text("0")}) {
            store.writeChannel(3, key, true);
            store.writeChannel(3, key, value);
            EXPECT_EQ(store.readChannel(3, key), Value{false}) << model::infoOf(key).name;
        }
    }
}

TEST(MemoryStore, CodesBecomeText) {
    MemoryDataStore store;
    const std::vector<std::pair<Value, std::string_view>> cases{
        {text("0293"), "0293"}, {text(" f00 "), " f00 "}, {293, "293"}, {293.0, "293"}, {Empty{}, ""}};
    for (const auto& [value, kept] : cases) {
        store.writeChannel(0, ChannelKey::P25TxNetworkAccessCode, value);
        EXPECT_EQ(store.readChannel(0, ChannelKey::P25TxNetworkAccessCode), text(kept));
    }
}

TEST(MemoryStore, OtherValuesKeepTheTypeOfTheirWriter) {
    MemoryDataStore store;
    for (const auto& value : std::vector<Value>{145'012'500.5, std::int32_t{145'000'000}, std::int16_t{7},
                                                std::int64_t{5'000'000'000}, 67.0F, text("145000000"), true, Empty{}}) {
        store.writeChannel(9, ChannelKey::TxFreq, value);
        EXPECT_EQ(store.readChannel(9, ChannelKey::TxFreq), value);
    }
}

TEST(MemoryStore, WhatIsNoValueIsRefusedAndChangesNothing) {
    MemoryDataStore store;
    fillDistinct(store, 1);
    const auto before = tableText(store);
    const auto revision = store.revision();
    for (const auto key : {ChannelKey::TxFreq, ChannelKey::scan, ChannelKey::P25TalkgroupID}) {
        EXPECT_THROW(store.writeChannel(0, key, Unusable{}), base::ConversionFailure);
    }
    EXPECT_THROW(store.writeChannel(0, ChannelKey::TxFreq, text("145 MHz")), base::ConversionFailure);
    EXPECT_THROW(store.writeChannel(0, ChannelKey::scan, text("maybe")), base::ConversionFailure);
    EXPECT_THROW(store.writeChannel(0, ChannelKey::RxFreq, std::numeric_limits<double>::infinity()),
                 base::ConversionFailure);
    EXPECT_THROW(store.writeChannel(0, ChannelKey::RxFreq, std::numeric_limits<double>::quiet_NaN()),
                 base::ConversionFailure);
    EXPECT_EQ(tableText(store), before);
    EXPECT_EQ(store.revision(), revision);
}

TEST(MemoryStore, MembersTakeTheTypeOfTheirKind) {
    MemoryDataStore store;
    const std::vector<std::tuple<StoreMember, Value, Value>> cases{
        {StoreMember::CommsBusy, 1, true},
        {StoreMember::CommsBusy, 0.0, false},
        {StoreMember::SelectedChannel, std::int32_t{255}, std::int16_t{255}},
        {StoreMember::SelectedChannel, text("12"), std::int16_t{12}},
        {StoreMember::CommsTask, 30.0, std::int16_t{30}},
        {StoreMember::LocalOscOffset, -21'400'000.5, std::int32_t{-21'400'000}},
        {StoreMember::HardwareRevision, 2.9, 2.9F},
        {StoreMember::HardwareRevision, 3, 3.0F},
        {StoreMember::DatabaseTitle, 7, text("7")},
        {StoreMember::MessageTitle, text("Title"), text("Title")},
    };
    for (const auto& [member, put, kept] : cases) {
        store.put(member, put);
        EXPECT_EQ(store.get(member), kept) << model::infoOf(member).name;
        EXPECT_EQ(store.memberValue(member), kept) << model::infoOf(member).name;
    }
}

TEST(MemoryStore, AMemberThatDoesNotFitIsRefusedAndKeepsItsValue) {
    MemoryDataStore store;
    EXPECT_THROW(store.put(StoreMember::SelectedChannel, 40'000), base::ConversionFailure);
    EXPECT_THROW(store.put(StoreMember::ChannelSpacing, 5e9), base::ConversionFailure);
    EXPECT_THROW(store.put(StoreMember::CommsBusy, text("busy")), base::ConversionFailure);
    EXPECT_THROW(store.put(StoreMember::MessageTitle, Unusable{}), base::ConversionFailure);
    EXPECT_EQ(store.get(StoreMember::SelectedChannel), Value{std::int16_t{1}});
    EXPECT_EQ(store.get(StoreMember::ChannelSpacing), Value{25'000});
    EXPECT_EQ(store.get(StoreMember::CommsBusy), Value{false});
    EXPECT_EQ(store.get(StoreMember::MessageTitle), text("Telvar"));
    EXPECT_EQ(store.revision(), 0U);
}

TEST(MemoryStore, EveryPutRaisesTheRevisionEvenOfTheSameValue) {
    MemoryDataStore store;
    EXPECT_EQ(store.revision(), 0U);
    store.writeChannel(0, ChannelKey::TxFreq, 0);
    EXPECT_EQ(store.revision(), 1U);
    store.put(StoreMember::CommsBusy, true);
    EXPECT_EQ(store.revision(), 2U);
    store.put(StoreMember::ChannelSpacing, 12'500);
    EXPECT_EQ(store.revision(), 3U);
    store.setReferenceDividerScaling(2);
    EXPECT_EQ(store.revision(), 4U);
    store.clear();
    EXPECT_EQ(store.revision(), 5U);
    (void)store.readChannel(0, ChannelKey::TxFreq);
    (void)store.get(StoreMember::CommsBusy);
    EXPECT_EQ(store.revision(), 5U);
}

TEST(MemoryStore, SharedStateDoesNotCountAsAChangeOfTheTable) {
    for (const auto& info : model::storeMembers) {
        MemoryDataStore store;
        store.put(info.member, store.get(info.member));
        EXPECT_EQ(store.tableRevision(), info.describesRadio ? 1U : 0U) << info.name;
    }
    MemoryDataStore store;
    store.SetPotValue(0, 1);
    EXPECT_EQ(store.tableRevision(), 0U);
    store.writeChannel(254, ChannelKey::scan, true);
    EXPECT_EQ(store.tableRevision(), 1U);
    store.setReferenceDividerScaling(-3);
    EXPECT_EQ(store.tableRevision(), 2U);
    store.clear();
    EXPECT_EQ(store.tableRevision(), 3U);
}

TEST(MemoryStore, ClearingBringsEveryDefaultBack) {
    const auto store = fullStore();
    store->put(StoreMember::MessageTitle, text("Other"));
    store->put(StoreMember::BandwidthSwitchable, false);
    store->setReferenceDividerScaling(4);
    store->SetPotValue(2, 200);
    store->setAutomaticSelect(true);
    store->setSendPermitted(false);
    store->clear();
    MemoryDataStore fresh;
    EXPECT_EQ(tableText(*store), tableText(fresh));
    for (const auto& info : model::storeMembers) {
        EXPECT_EQ(store->get(info.member), fresh.get(info.member)) << info.name;
    }
    EXPECT_EQ(store->referenceDividerScaling(), Value{0});
    EXPECT_EQ(store->potValue(2), 0);
    EXPECT_FALSE(store->AutomaticSelect(2));
    EXPECT_TRUE(store->SendPermitted());
}

TEST(MemoryStore, ScalingIsAnyThirtyTwoBitInteger) {
    MemoryDataStore store;
    store.setReferenceDividerScaling(text("-5"));
    EXPECT_EQ(store.referenceDividerScaling(), Value{std::int32_t{-5}});
    EXPECT_THROW(store.setReferenceDividerScaling(1e10), base::ConversionFailure);
    EXPECT_EQ(store.referenceDividerScaling(), Value{std::int32_t{-5}});
}

TEST(MemoryStore, StagesFourLevels) {
    MemoryDataStore store;
    for (std::int16_t index = 0; index < 4; ++index) {
        store.SetPotValue(index, static_cast<std::uint8_t>(250 + index));
    }
    for (std::int16_t index = 0; index < 4; ++index) {
        EXPECT_EQ(store.potValue(index), 250 + index);
    }
    for (const std::int16_t index : {std::int16_t{-1}, std::int16_t{4}}) {
        EXPECT_THROW(store.SetPotValue(index, 0), base::SubscriptFailure);
        EXPECT_THROW((void)store.potValue(index), base::SubscriptFailure);
    }
}

TEST(MemoryStore, OnlyDigitsAndTheSignMayEnterANumericField) {
    MemoryDataStore store;
    for (int code = -1; code <= 300; ++code) {
        EXPECT_EQ(store.CheckKey(static_cast<std::int16_t>(code)), (code >= 48 && code <= 57) || code == 45) << code;
    }
}

TEST(MemoryStore, AnswersTheToneTableFromHighestToLowest) {
    MemoryDataStore store;
    EXPECT_EQ(store.CtcssTone(0), 250.3F);
    EXPECT_EQ(store.CtcssTone(37), 69.3F);
    EXPECT_EQ(store.CtcssTone(38), 67.0F);
    EXPECT_THROW((void)store.CtcssTone(-1), base::SubscriptFailure);
    EXPECT_THROW((void)store.CtcssTone(39), base::SubscriptFailure);
}

TEST(MemoryStore, AnswersItsTwoQuestionsAsSet) {
    MemoryDataStore store;
    store.setAutomaticSelect(true);
    store.setSendPermitted(false);
    store.EnterChannelSelect();
    EXPECT_TRUE(store.AutomaticSelect(2));
    EXPECT_FALSE(store.SendPermitted());
}

}  // namespace
}  // namespace telvar::tests
