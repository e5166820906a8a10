#include "interchange/csv_writer.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "support/table_builder.h"

namespace telvar::interchange {
namespace {

using model::ChannelKey;

class Csv : public testing::Test {
protected:
    [[nodiscard]] std::vector<std::string> lines(const base::NumberFormat& format = {}) {
        const auto text = csvText(table, format);
        EXPECT_TRUE(text) << text.error();
        const auto oneByteEnds = base::replacedAll(text.value_or(""), "\r\n", "\r");
        std::vector<std::string> result;
        for (const auto line : base::splitAt(oneByteEnds, '\r')) {
            result.emplace_back(line);
        }
        EXPECT_EQ(result.back(), "");
        result.pop_back();
        return result;
    }

    model::MemoryDataStore table;
};

TEST_F(Csv, BeginsWithTheHeadingsAndTheKeys) {
    EXPECT_EQ(
        lines(),
        std::vector<std::string>{
            "Channel,Tx Frequency (MHz),Rx Frequency (MHz),Tx Subtone,Rx Subtone,RF Mode,Scan,WB/NB Selection,"
            "Ext PTT Tx Mode,TX Pwr,RefOscFreq WB,VCOLvlWB,RefOscLvlWB,RefOscFreqNB,VCOLvlNB,RefOscLvlNB,SubtoneLvl,"
            "SynthStepTX,BinTX,ModTX,SynthStepRX,BinRX,ModRX,P25Repeater,P25TalkgroupID,P25TxNAC,P25RxNAC,"
            "TxFreq,RxFreq,TxCTCSSDCS,TxDCSIndex,TxSub,RxCTCSSDCS,RxDCSIndex,RxSub,ModeBits,scan,TxLevel,SynthStep,"
            "AccelInt,BinMain,Modulo,AccelProp,RxSynthStep,RxAccelInt,RxBinMain,RxModulo,RxAccelProp,TxPower,"
            "RefOscFreq,"
            "VCODev,RefOscDev,NBRefOscFreq,NBVCODev,NBRefOscDev,P25TransmitMode,p25RepeaterEnable,TTRAnalogDataMode,"
            "P25TxNetworkAccessCode,P25RxNetworkAccessCode,P25TalkgroupID"});
}

TEST_F(Csv, AChannelIsItsCellsAndItsKeys) {
    tests::fill(table, 7,
                {{ChannelKey::TxFreq, 145'500'000},
                 {ChannelKey::RxFreq, 145'000'000.5},
                 {ChannelKey::TxSub, 88.5F},
                 {ChannelKey::scan, true},
                 {ChannelKey::ModeBits, 129},
                 {ChannelKey::SynthStep, 6'250}});
    const auto text = lines();
    ASSERT_EQ(text.size(), 2U);
    EXPECT_EQ(text[1], "7,145.500000,145.000001,88.5 "
                       "Hz,Disabled,Simplex,Yes,Narrow,Analogue,128,127,128,128,127,128,128,0,6.25,0,8,12.5,0,"
                       "8,No,0000,0000,0000,145500000,145000000.5,false,0,88.5,false,0,0,129,true,0,6250,0,0,1,0,12500,"
                       "0,0,1,0,128,128,"
                       "128,128,128,128,128,false,false,false,0000,0000,0000");
}

TEST_F(Csv, HasEveryChannelThatIsNotEmptyAndNoOther) {
    tests::fill(table, 3, {{ChannelKey::TxPower, 1}});
    tests::fill(table, 4, {{ChannelKey::TxPower, 128.0}});
    tests::fill(table, 255, {{ChannelKey::RxFreq, 446'006'250}});
    const auto text = lines();
    ASSERT_EQ(text.size(), 3U);
    EXPECT_TRUE(text[1].starts_with("3,X,X,X,")) << text[1];
    EXPECT_TRUE(text[2].starts_with("255,X,446.006250,")) << text[2];
}

TEST_F(Csv, AnotherSeparatorIsQuoted) {
    tests::fill(table, 1, {{ChannelKey::TxFreq, 145'500'000}, {ChannelKey::TxSub, 88.5F}});
    const auto text = lines({.decimalSeparator = ','});
    EXPECT_TRUE(text[1].starts_with("1,\"145,500000\",X,\"88,5 Hz\",")) << text[1];
    EXPECT_NE(text[1].find(",145500000,0,false,0,\"88,5\","), std::string::npos) << text[1];
}

TEST_F(Csv, QuotesWhatWouldBreakALine) {
    tests::fill(table, 1,
                {{ChannelKey::TxFreq, 145'500'000},
                 {ChannelKey::P25TalkgroupID, base::textValue("a\"b")},
                 {ChannelKey::P25TxNetworkAccessCode, base::textValue("1,2")},
                 {ChannelKey::P25RxNetworkAccessCode, base::textValue(" 12")}});
    EXPECT_TRUE(lines()[1].ends_with(",\"1,2\",\" 12\",\"a\"\"b\"")) << lines()[1];
}

TEST_F(Csv, HoldsTheKeysOfAChannelThatCannotBeShown) {
    tests::fill(table, 9, {{ChannelKey::TxFreq, 1e300}});
    EXPECT_TRUE(lines()[1].starts_with("9,\"\",\"\",")) << lines()[1];
    EXPECT_NE(lines()[1].find(",1e+300,0,false,"), std::string::npos) << lines()[1];
}

TEST_F(Csv, TellsAnEmptyCodeFromNone) {
    tests::fill(table, 9, {{ChannelKey::P25TalkgroupID, base::textValue("")}});
    EXPECT_TRUE(lines()[1].ends_with(",0000,0000,\"\"")) << lines()[1];
}

TEST_F(Csv, NamesTheChannelThatCannotBeWritten) {
    tests::fill(table, 3, {{ChannelKey::P25TalkgroupID, base::textValue(std::string_view("1\0", 2))}});
    EXPECT_EQ(csvText(table, {}).error(), "channel 3: \"P25TalkgroupID\" holds a zero byte, which CSV cannot carry");
    tests::fill(table, 3, {{ChannelKey::P25TalkgroupID, base::textValue("1234")}});
    tests::fill(table, 9, {{ChannelKey::TxLevel, 2.5}});
    EXPECT_EQ(csvText(table, {}).error(), "channel 9: \"TxLevel\" must be a whole number, not 2.5");
}

}  // namespace
}  // namespace telvar::interchange
