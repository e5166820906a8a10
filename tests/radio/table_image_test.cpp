#include "radio/table_image.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "base/conversion.h"
#include "base/failure.h"
#include "model/memory_data_store.h"
#include "tables.h"

namespace telvar::tests {
namespace {

using model::ChannelKey;
using radio::RecordImage;
using radio::TableImage;

[[nodiscard]] std::string refusalOf(ChannelKey key, const base::Value& value) {
    RecordImage record{};
    try {
        radio::putInto(record, key, value);
    } catch (const base::Failure& failure) {
        EXPECT_EQ(record, RecordImage{});
        return failure.description();
    }
    return "no refusal";
}

[[nodiscard]] base::Value trip(ChannelKey key, const base::Value& value) {
    RecordImage record{};
    radio::putInto(record, key, value);
    return radio::valueIn(record, key);
}

TEST(TableImage, EveryKeyHasBytesOfItsOwn) {
    for (const auto& info : model::channelKeys) {
        RecordImage record = radio::emptyImage().front();
        const RecordImage before = record;
        const base::Value other = info.kind == model::KeyKind::Boolean ? base::Value{true}
                                  : info.kind == model::KeyKind::Code  ? base::textValue("A7F3")
                                                                       : base::Value{std::int16_t{77}};
        radio::putInto(record, info.key, other);
        for (const auto& each : model::channelKeys) {
            const auto expected = base::toText(each.key == info.key ? other : radio::valueIn(before, each.key));
            EXPECT_EQ(base::toText(radio::valueIn(record, each.key)), expected) << each.name << " after " << info.name;
        }
    }
}

TEST(TableImage, AWholeTableComesBackAsItWas) {
    model::MemoryDataStore store;
    fill(store, 1);
    const auto image = radio::imageOf(store);
    for (std::int16_t index = 0; index < model::channelCount; ++index) {
        for (const auto& info : model::channelKeys) {
            EXPECT_EQ(base::toText(radio::valueIn(image[static_cast<std::size_t>(index)], info.key)),
                      base::toText(store.readChannel(index, info.key)))
                << info.name << " of element " << index;
        }
    }
}

TEST(TableImage, ReadsInTheTypesOfTheKeys) {
    EXPECT_EQ(trip(ChannelKey::TxFreq, 156'400'000.0), (base::Value{std::int32_t{156'400'000}}));
    EXPECT_EQ(trip(ChannelKey::TxFreq, 4'294'967'295.0), base::Value{4'294'967'295.0});
    EXPECT_EQ(trip(ChannelKey::SynthStep, -12'500.0), (base::Value{std::int32_t{-12'500}}));
    EXPECT_EQ(trip(ChannelKey::TxSub, 67.1F), base::Value{67.1});
    EXPECT_EQ(trip(ChannelKey::TxLevel, std::int32_t{-3}), (base::Value{std::int16_t{-3}}));
    EXPECT_EQ(trip(ChannelKey::scan, std::int16_t{-1}), base::Value{true});
    EXPECT_EQ(trip(ChannelKey::P25TalkgroupID, base::textValue("1aF")), base::textValue("1aF"));
    EXPECT_EQ(trip(ChannelKey::TxFreq, base::Empty{}), (base::Value{std::int32_t{0}}));
}

TEST(TableImage, RoundsHalvesToEven) {
    EXPECT_EQ(trip(ChannelKey::TxFreq, 0.5), (base::Value{std::int32_t{0}}));
    EXPECT_EQ(trip(ChannelKey::TxFreq, 1.5), (base::Value{std::int32_t{2}}));
    EXPECT_EQ(trip(ChannelKey::TxSub, 67.25), base::Value{67.2});
}

TEST(TableImage, RefusesWhatTheRadioCannotHold) {
    const std::string range = "is out of the radio's range";
    EXPECT_EQ(refusalOf(ChannelKey::TxFreq, 4'294'967'296.0), range);
    EXPECT_EQ(refusalOf(ChannelKey::TxFreq, -1.0), range);
    EXPECT_EQ(refusalOf(ChannelKey::SynthStep, 2'147'483'648.0), range);
    EXPECT_EQ(refusalOf(ChannelKey::TxSub, 6'553.6), range);
    EXPECT_EQ(refusalOf(ChannelKey::BinMain, std::int32_t{32'768}), range);
    EXPECT_EQ(refusalOf(ChannelKey::BinMain, std::numeric_limits<double>::quiet_NaN()), range);
    EXPECT_EQ(refusalOf(ChannelKey::P25TalkgroupID, base::textValue("12345")), "is no code of the radio's");
    EXPECT_EQ(refusalOf(ChannelKey::P25TalkgroupID, base::textValue("1 2")), "is no code of the radio's");
    EXPECT_EQ(refusalOf(ChannelKey::TxFreq, base::textValue("much")), "Type mismatch");
}

TEST(TableImage, NamesTheChannelAndTheKeyThatCannotBeSent) {
    model::MemoryDataStore store;
    store.writeChannel(6, ChannelKey::RxFreq, 5e9);
    try {
        (void)radio::imageOf(store);
        ADD_FAILURE() << "not refused";
    } catch (const base::Failure& failure) {
        EXPECT_EQ(failure.description(), "Channel 7: RxFreq is out of the radio's range");
    }
}

TEST(TableImage, FindsRecordsThatMeanNothing) {
    RecordImage record = radio::emptyImage().front();
    EXPECT_EQ(radio::defectOf(record), "");
    for (std::size_t at = 59; at < radio::recordSize; ++at) {
        RecordImage bent = record;
        bent[at] = 0x80;
        EXPECT_EQ(radio::defectOf(bent), at < 63   ? "P25TxNetworkAccessCode"
                                         : at < 67 ? "P25RxNetworkAccessCode"
                                                   : "P25TalkgroupID");
    }
    // A gap inside a code.
    record[60] = 0;
    EXPECT_EQ(radio::defectOf(record), "P25TxNetworkAccessCode");
    record[60] = '0';
    record[58] = 0x40;
    EXPECT_EQ(radio::defectOf(record), "its flags");
}

TEST(TableImage, TellsWhichChannelsDiffer) {
    const TableImage left = radio::emptyImage();
    TableImage right = left;
    EXPECT_TRUE(radio::differences(left, right).empty());
    EXPECT_EQ(radio::checksumOf(left), radio::checksumOf(right));
    right[0][3] ^= 1;
    right[254][70] ^= 1;
    EXPECT_EQ(radio::differences(left, right), (std::vector<std::int16_t>{1, 255}));
    EXPECT_NE(radio::checksumOf(left), radio::checksumOf(right));
}

TEST(TableImage, NamesChannelsInAsFewWordsAsPossible) {
    EXPECT_EQ(radio::channelsText({7}), "channel 7");
    EXPECT_EQ(radio::channelsText({7, 8}), "channels 7 and 8");
    EXPECT_EQ(radio::channelsText({7, 8, 9}), "channels 7 to 9");
    EXPECT_EQ(radio::channelsText({1, 3, 4, 5, 9}), "channels 1, 3 to 5 and 9");
    EXPECT_EQ(radio::channelsText({1, 2, 4, 5, 6, 254, 255}), "channels 1, 2, 4 to 6, 254 and 255");
}

}  // namespace
}  // namespace telvar::tests
