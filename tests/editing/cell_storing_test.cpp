// What each column writes: keys, types and mode bits, on a channel whose other values must not move.
#include "editing/cell_storing.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "base/failure.h"
#include "support/recording_store.h"
#include "support/table_builder.h"

namespace telvar::tests {
namespace {

using base::Value;
using editing::storeCell;
using model::ChannelKey;

constexpr std::int16_t channel = 9;

class CellStoring : public testing::Test {
protected:
    void put(std::int16_t column, const std::string& text) {
        storeCell({.store = store_, .channel = channel, .format = {}}, column, text);
    }
    [[nodiscard]] Value at(ChannelKey key) { return store_.channel(channel).get(key); }
    void setBits(std::int32_t bits) { store_.channel(channel).put(ChannelKey::ModeBits, bits); }
    [[nodiscard]] std::int64_t bits() { return base::toBits(at(ChannelKey::ModeBits)); }

    model::MemoryDataStore store_;
};

TEST_F(CellStoring, FrequenciesAreDoublesUnrounded) {
    put(1, "145.0000004");
    put(2, "1e3");
    EXPECT_EQ(at(ChannelKey::TxFreq), Value{145.0000004 * 1e6});
    EXPECT_EQ(at(ChannelKey::RxFreq), Value{1e9});
}

TEST_F(CellStoring, AFrequencyWithoutValueIsStoredAsZero) {
    put(1, "145");
    put(1, " X ");
    EXPECT_EQ(at(ChannelKey::TxFreq), Value{std::int16_t{0}});
}

TEST_F(CellStoring, AToneClearsTheCodeAndADisabledSubtoneBoth) {
    store_.channel(channel).put(ChannelKey::TxCTCSSDCS, true);
    store_.channel(channel).put(ChannelKey::TxDCSIndex, std::int16_t{40});
    put(3, "123.0 Hz");
    EXPECT_EQ(at(ChannelKey::TxCTCSSDCS), Value{false});
    EXPECT_EQ(at(ChannelKey::TxDCSIndex), Value{std::int16_t{0}});
    EXPECT_EQ(at(ChannelKey::TxSub), Value{123.0F});
    put(3, "Disabled");
    EXPECT_EQ(at(ChannelKey::TxSub), Value{0.0F});
}

TEST_F(CellStoring, ADcsCodeLeavesTheToneAsItWas) {
    put(3, "67.0 Hz");
    put(3, "754");
    EXPECT_EQ(at(ChannelKey::TxCTCSSDCS), Value{true});
    EXPECT_EQ(at(ChannelKey::TxDCSIndex), Value{std::int16_t{82}});
    EXPECT_EQ(at(ChannelKey::TxSub), Value{67.0F});
}

TEST_F(CellStoring, TheTransmitSubtoneTouchesNoModeBit) {
    for (const std::string text : {"023", "67.0 Hz", "Disabled"}) {
        for (const std::int32_t before : {0, 255}) {
            setBits(before);
            put(3, text);
            EXPECT_EQ(bits(), before) << text;
        }
    }
}

TEST_F(CellStoring, TheReceiveSubtoneMovesTheBitsOf4And16Only) {
    struct Case {
        std::string text;
        std::int64_t fromNone;
        std::int64_t fromAll;
    };
    for (const auto& [text, fromNone, fromAll] : std::vector<Case>{
             {"023", 0x10, 0xFB}, {"Multiple", 0x04, 0xFF}, {"67.0 Hz", 0x00, 0xFB}, {"Disabled", 0x00, 0xFB}}) {
        setBits(0);
        put(4, text);
        EXPECT_EQ(bits(), fromNone) << text;
        setBits(0xFF);
        put(4, text);
        EXPECT_EQ(bits(), fromAll) << text;
    }
}

TEST_F(CellStoring, MultipleReplacesADcsCodeAndKeepsCodeAndTone) {
    put(4, "88.5 Hz");
    put(4, "025");
    put(4, "multiple");
    EXPECT_EQ(at(ChannelKey::RxCTCSSDCS), Value{false});
    EXPECT_EQ(at(ChannelKey::RxDCSIndex), Value{std::int16_t{1}});
    EXPECT_EQ(at(ChannelKey::RxSub), Value{88.5F});
}

TEST_F(CellStoring, TheRfModeMovesItsBitsAndKeepsTheOthers) {
    struct Case {
        std::string text;
        std::int64_t fromNone;
        std::int64_t fromAll;
        bool repeatsP25;
    };
    for (const auto& [text, fromNone, fromAll, repeatsP25] : std::vector<Case>{{"Duplex", 0x00, 0xFC, false},
                                                                               {"SIMPLEX", 0x01, 0xFD, false},
                                                                               {" repeater ", 0x02, 0xFE, false},
                                                                               {"P25 Repeater", 0x80, 0xFC, true},
                                                                               {"Mixed Mode", 0x82, 0xFE, true}}) {
        store_.channel(channel).put(ChannelKey::p25RepeaterEnable, !repeatsP25);
        setBits(0);
        put(5, text);
        EXPECT_EQ(bits(), fromNone) << text;
        EXPECT_EQ(at(ChannelKey::p25RepeaterEnable), Value{repeatsP25}) << text;
        setBits(0xFF);
        put(5, text);
        EXPECT_EQ(bits(), fromAll) << text;
    }
}

TEST_F(CellStoring, ScanBandwidthAndExternalPtt) {
    put(6, " yes ");
    EXPECT_EQ(at(ChannelKey::scan), Value{true});
    put(6, "No");
    EXPECT_EQ(at(ChannelKey::scan), Value{false});

    setBits(0x41);
    put(7, "narrow");
    EXPECT_EQ(bits(), 0xC1);
    for (const std::string text : {"Wide", "N/A"}) {
        setBits(0xC1);
        put(7, text);
        EXPECT_EQ(bits(), 0x41) << text;
    }

    put(8, "P25 Digital");
    EXPECT_EQ(at(ChannelKey::P25TransmitMode), Value{true});
    EXPECT_EQ(bits(), 0xC1);
    put(8, "Analogue");
    EXPECT_EQ(at(ChannelKey::P25TransmitMode), Value{false});
    EXPECT_EQ(bits(), 0xC1);
}

TEST_F(CellStoring, WholeNumbersAreRoundedHalfToEvenIntoTheirKeys) {
    struct Case {
        std::int16_t column;
        ChannelKey key;
    };
    for (const auto& [column, key] :
         {Case{9, ChannelKey::TxPower}, Case{10, ChannelKey::RefOscFreq}, Case{11, ChannelKey::VCODev},
          Case{12, ChannelKey::RefOscDev}, Case{13, ChannelKey::NBRefOscFreq}, Case{14, ChannelKey::NBVCODev},
          Case{15, ChannelKey::NBRefOscDev}, Case{16, ChannelKey::TxLevel}, Case{18, ChannelKey::BinMain},
          Case{21, ChannelKey::RxBinMain}}) {
        put(column, " 2.5 ");
        EXPECT_EQ(at(key), Value{std::int16_t{2}}) << column;
        put(column, "5.5");
        EXPECT_EQ(at(key), Value{std::int16_t{6}}) << column;
    }
}

TEST_F(CellStoring, StepsAreMultipliedInSinglePrecisionAndStoredAsDoubles) {
    put(17, "5.2");
    put(20, "6.25");
    EXPECT_EQ(at(ChannelKey::SynthStep), Value{5200.0});
    EXPECT_EQ(at(ChannelKey::RxSynthStep), Value{6250.0});
}

TEST_F(CellStoring, AModuloOfFiveIsStoredAsZeroAndAnyOtherAsOne) {
    put(19, "5");
    put(22, "8");
    EXPECT_EQ(at(ChannelKey::Modulo), Value{std::int16_t{0}});
    EXPECT_EQ(at(ChannelKey::RxModulo), Value{std::int16_t{1}});
}

TEST_F(CellStoring, AP25RepeaterIsNarrowAndNeitherSimplexNorRepeater) {
    setBits(0x47);
    put(23, "Yes");
    EXPECT_EQ(bits(), 0xC4);
    EXPECT_EQ(at(ChannelKey::p25RepeaterEnable), Value{true});
    put(23, "No");
    EXPECT_EQ(bits(), 0xC4);
    EXPECT_EQ(at(ChannelKey::p25RepeaterEnable), Value{false});
}

TEST_F(CellStoring, OnlyTheTalkgroupIsPadded) {
    put(24, " 1a ");
    put(25, " 1a ");
    put(26, "293");
    EXPECT_EQ(at(ChannelKey::P25TalkgroupID), base::textValue("001a"));
    EXPECT_EQ(at(ChannelKey::P25TxNetworkAccessCode), base::textValue("1a"));
    EXPECT_EQ(at(ChannelKey::P25RxNetworkAccessCode), base::textValue("293"));
}

TEST_F(CellStoring, TextsThatCannotBeConvertedAreFailuresAndWriteNothing) {
    const auto before = store_.revision();
    for (const std::int16_t column : std::vector<std::int16_t>{1, 2, 3, 9, 17}) {
        EXPECT_THROW(put(column, "nonsense"), base::ConversionFailure) << column;
    }
    EXPECT_THROW(put(0, "1"), base::SubscriptFailure);
    EXPECT_THROW(put(27, "1"), base::SubscriptFailure);
    EXPECT_EQ(store_.revision(), before);
}

}  // namespace
}  // namespace telvar::tests
