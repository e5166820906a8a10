#include "model/channel_key.h"

#include <array>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "model/mode_bits.h"

namespace telvar::tests {
namespace {

using model::ChannelKey;
using model::KeyKind;

struct ExpectedKey {
    ChannelKey key;
    std::string_view name;
    KeyKind kind;
    int emptyValue;
};

constexpr std::array expectedKeys{
    ExpectedKey{ChannelKey::TxFreq, "TxFreq", KeyKind::Frequency, 0},
    ExpectedKey{ChannelKey::RxFreq, "RxFreq", KeyKind::Frequency, 0},
    ExpectedKey{ChannelKey::TxCTCSSDCS, "TxCTCSSDCS", KeyKind::Boolean, 0},
    ExpectedKey{ChannelKey::TxDCSIndex, "TxDCSIndex", KeyKind::Integer, 0},
    ExpectedKey{ChannelKey::TxSub, "TxSub", KeyKind::Tone, 0},
    ExpectedKey{ChannelKey::RxCTCSSDCS, "RxCTCSSDCS", KeyKind::Boolean, 0},
    ExpectedKey{ChannelKey::RxDCSIndex, "RxDCSIndex", KeyKind::Integer, 0},
    ExpectedKey{ChannelKey::RxSub, "RxSub", KeyKind::Tone, 0},
    ExpectedKey{ChannelKey::ModeBits, "ModeBits", KeyKind::Integer, 0},
    ExpectedKey{ChannelKey::scan, "scan", KeyKind::Boolean, 0},
    ExpectedKey{ChannelKey::TxLevel, "TxLevel", KeyKind::Integer, 0},
    ExpectedKey{ChannelKey::SynthStep, "SynthStep", KeyKind::Step, 12500},
    ExpectedKey{ChannelKey::AccelInt, "AccelInt", KeyKind::Integer, 0},
    ExpectedKey{ChannelKey::BinMain, "BinMain", KeyKind::Integer, 0},
    ExpectedKey{ChannelKey::Modulo, "Modulo", KeyKind::Integer, 1},
    ExpectedKey{ChannelKey::AccelProp, "AccelProp", KeyKind::Integer, 0},
    ExpectedKey{ChannelKey::RxSynthStep, "RxSynthStep", KeyKind::Step, 12500},
    ExpectedKey{ChannelKey::RxAccelInt, "RxAccelInt", KeyKind::Integer, 0},
    ExpectedKey{ChannelKey::RxBinMain, "RxBinMain", KeyKind::Integer, 0},
    ExpectedKey{ChannelKey::RxModulo, "RxModulo", KeyKind::Integer, 1},
    ExpectedKey{ChannelKey::RxAccelProp, "RxAccelProp", KeyKind::Integer, 0},
    ExpectedKey{ChannelKey::TxPower, "TxPower", KeyKind::Integer, 128},
    ExpectedKey{ChannelKey::RefOscFreq, "RefOscFreq", KeyKind::Integer, 128},
    ExpectedKey{ChannelKey::VCODev, "VCODev", KeyKind::Integer, 128},
    ExpectedKey{ChannelKey::RefOscDev, "RefOscDev", KeyKind::Integer, 128},
    ExpectedKey{ChannelKey::NBRefOscFreq, "NBRefOscFreq", KeyKind::Integer, 128},
    ExpectedKey{ChannelKey::NBVCODev, "NBVCODev", KeyKind::Integer, 128},
    ExpectedKey{ChannelKey::NBRefOscDev, "NBRefOscDev", KeyKind::Integer, 128},
    ExpectedKey{ChannelKey::P25TransmitMode, "P25TransmitMode", KeyKind::Boolean, 0},
    ExpectedKey{ChannelKey::p25RepeaterEnable, "p25RepeaterEnable", KeyKind::Boolean, 0},
    ExpectedKey{ChannelKey::TTRAnalogDataMode, "TTRAnalogDataMode", KeyKind::Boolean, 0},
    ExpectedKey{ChannelKey::P25TxNetworkAccessCode, "P25TxNetworkAccessCode", KeyKind::Code, 0},
    ExpectedKey{ChannelKey::P25RxNetworkAccessCode, "P25RxNetworkAccessCode", KeyKind::Code, 0},
    ExpectedKey{ChannelKey::P25TalkgroupID, "P25TalkgroupID", KeyKind::Code, 0},
};

TEST(ChannelKeys, AreTheThirtyFourOfARecordSpelledExactly) {
    ASSERT_EQ(expectedKeys.size(), 34U);
    ASSERT_EQ(model::channelKeys.size(), expectedKeys.size());
    for (const auto& expected : expectedKeys) {
        const auto& info = model::infoOf(expected.key);
        EXPECT_EQ(info.key, expected.key) << expected.name;
        EXPECT_EQ(info.name, expected.name);
        EXPECT_EQ(info.kind, expected.kind) << expected.name;
        EXPECT_EQ(info.emptyValue, expected.emptyValue) << expected.name;
        EXPECT_EQ(model::channelKeyNamed(expected.name), expected.key) << expected.name;
    }
}

TEST(ChannelKeys, AreFoundByTheirExactSpellingOnly) {
    for (const std::string_view name : {"Scan", "P25RepeaterEnable", "txfreq", "TxFreq ", "", "Tx"}) {
        EXPECT_EQ(model::channelKeyNamed(name), std::nullopt) << name;
    }
}

TEST(ModeBits, HaveTheirPublishedValues) {
    EXPECT_EQ(model::mode::simplex, 1);
    EXPECT_EQ(model::mode::repeater, 2);
    EXPECT_EQ(model::mode::multipleReceiveSubtones, 4);
    EXPECT_EQ(model::mode::transmitDcs, 16);
    EXPECT_EQ(model::mode::receiveDcs, 32);
    EXPECT_EQ(model::mode::dataMode, 64);
    EXPECT_EQ(model::mode::narrowBand, 128);
}

}  // namespace
}  // namespace telvar::tests
