#include "editing/columns.h"

#include <array>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "base/failure.h"
#include "support/answering_store.h"
#include "support/failing_store.h"
#include "support/recording_store.h"
#include "support/table_builder.h"

namespace telvar::tests {
namespace {

using base::Empty;
using base::Unusable;
using base::Value;
using model::ChannelKey;
using model::StoreMember;

[[nodiscard]] Value text(std::string_view characters) { return base::textValue(characters); }

struct ExpectedColumn {
    int number;
    std::string_view header;
    int width;
    int fullAccessWidth;
    std::string_view enumerationName;
    std::string_view errorName;
};

constexpr std::array expectedColumns{
    ExpectedColumn{0, "", 400, 400, "", ""},
    ExpectedColumn{1, "Tx Frequency (MHz)", 1100, 1100, "", "RX Freq"},
    ExpectedColumn{2, "Rx Frequency (MHz)", 1100, 1100, "", "RX Freq"},
    ExpectedColumn{3, "Tx Subtone", 950, 950, "", "TX Subtone"},
    ExpectedColumn{4, "Rx Subtone", 950, 950, "", "RX Subtone"},
    ExpectedColumn{5, "RF Mode", 1100, 1100, "", "RF Mode"},
    ExpectedColumn{6, "Scan", 700, 700, "", "Scan"},
    ExpectedColumn{7, "WB/NB Selection", 1370, 1370, "", "WB/NB"},
    ExpectedColumn{8, "Ext PTT Tx Mode", 1350, 1350, "", "External PTT Mode"},
    ExpectedColumn{9, "TX Pwr", 0, 700, "TXPowerCol", "TX Power"},
    ExpectedColumn{10, "RefOscFreq WB", 0, 1300, "RefOscFreqWBCol", "Ref Osc Freq WB"},
    ExpectedColumn{11, "VCOLvlWB", 0, 900, "VCOLevelWBCol", "VCO Lvl WB"},
    ExpectedColumn{12, "RefOscLvlWB", 0, 1100, "RefOscLevelWBCol", "Ref Osc Lvl WB"},
    ExpectedColumn{13, "RefOscFreqNB", 0, 1200, "RefOscFreqNBCol", "Ref Osc Freq NB"},
    ExpectedColumn{14, "VCOLvlNB", 0, 900, "VCOLevelNBCol", "VCO Lvl NB"},
    ExpectedColumn{15, "RefOscLvlNB", 0, 1100, "RefOscLevelNBCol", "Ref Osc Lvl NB"},
    ExpectedColumn{16, "SubtoneLvl", 0, 900, "TXSubtoneLevelCol", "Subtone Level"},
    ExpectedColumn{17, "SynthStepTX", 0, 1050, "SynthStepSizeTXCol", "TX Synth Step Size"},
    ExpectedColumn{18, "BinTX", 0, 650, "BinaryMainTXCol", "TX Binary Main"},
    ExpectedColumn{19, "ModTX", 0, 650, "ModuloTXCol", "TX Modulo"},
    ExpectedColumn{20, "SynthStepRX", 0, 1050, "SynthStepSizeRXCol", "RX Synth Step Size"},
    ExpectedColumn{21, "BinRX", 0, 650, "BinaryMainRXCol", "RX Binary Main"},
    ExpectedColumn{22, "ModRX", 0, 650, "ModuloRXCol", "RX Modulo"},
    ExpectedColumn{23, "P25Repeater", 0, 1050, "p25RepeaterEnable", "P25 Repeater Enable"},
    ExpectedColumn{24, "P25TalkgroupID", 0, 1250, "P25TalkgroupID", "P25 Talkgroup ID"},
    ExpectedColumn{25, "P25TxNAC", 0, 900, "P25TxNAC", "P25 TX NAC"},
    ExpectedColumn{26, "P25RxNAC", 0, 900, "P25RxNAC", "P25 RX NAC"},
};

TEST(Columns, AreTheTwentySevenOfTheGrid) {
    ASSERT_EQ(editing::columns.size(), 27U);
    ASSERT_EQ(expectedColumns.size(), 27U);
    for (std::size_t at = 0; at < expectedColumns.size(); ++at) {
        const auto& expected = expectedColumns[at];
        const auto& column = editing::columns[at];
        EXPECT_EQ(column.number, expected.number);
        EXPECT_EQ(column.header, expected.header) << expected.number;
        EXPECT_EQ(column.width, expected.width) << expected.number;
        EXPECT_EQ(column.fullAccessWidth, expected.fullAccessWidth) << expected.number;
        EXPECT_EQ(column.enumerationName, expected.enumerationName) << expected.number;
        EXPECT_EQ(column.errorName, expected.errorName) << expected.number;
    }
}

TEST(Columns, FromTheNinthOnAreHiddenAtFirst) {
    for (const auto& column : editing::columns) {
        EXPECT_EQ(column.width == 0, column.number >= editing::firstHiddenColumn) << column.header;
        EXPECT_EQ(column.enumerationName.empty(), column.number < editing::firstHiddenColumn) << column.header;
    }
    EXPECT_EQ(editing::columns[editing::firstP25Column].header, "P25Repeater");
}

// A store with one configured channel, and the row that the grid shows of it.
class Cells : public testing::Test {
protected:
    static constexpr std::int16_t channel = 7;

    Cells() { set(ChannelKey::RxFreq, 145'000'000); }

    void set(ChannelKey key, const Value& value) { store.channel(channel).put(key, value); }
    void set(StoreMember member, const Value& value) { store.put(member, value); }

    [[nodiscard]] std::string cell(int column, base::NumberFormat format = {}) {
        return renderedRow(store, channel, format).at(static_cast<std::size_t>(column));
    }
    // With answers that the store in memory would not keep.
    [[nodiscard]] std::string cellAnswering(int column, ChannelKey key, const Value& value) {
        AnsweringStore foreign(store);
        foreign.answer(key, value);
        return renderedRow(foreign, channel).at(static_cast<std::size_t>(column));
    }

    model::MemoryDataStore store;
};

TEST_F(Cells, TheLabelIsTheChannelNumber) {
    EXPECT_EQ(editing::columns[0].render({.store = store, .channel = 1}), "1");
    EXPECT_EQ(editing::columns[0].render({.store = store, .channel = 255}), "255");
}

TEST_F(Cells, FrequenciesAreMegahertzWithSixDecimals) {
    const std::vector<std::pair<Value, std::string_view>> cases{
        {145'000'000, "145.000000"},
        {145'012'500.0, "145.012500"},
        {145'012'500.25, "145.012500"},
        {145'012'500.5, "145.012501"},
        {std::int64_t{446'006'250}, "446.006250"},
        {std::int16_t{12'500}, "0.012500"},
        {10'000'000, "10.000000"},
        {1'000'000'000, "1000.000000"},
        {1, "0.000001"},
        {0.4, "0.000000"},
        {5e9, "5000.000000"},
        {-145'000'000, "-145.000000"},
        {145e6F, "145.000000"},
        {text("145000000"), "145.000000"},
        {true, "-0.000001"},
    };
    for (const auto& [stored, shown] : cases) {
        set(ChannelKey::TxFreq, stored);
        EXPECT_EQ(cell(1), shown);
    }
    set(ChannelKey::RxFreq, 446'093'750.0);
    EXPECT_EQ(cell(2), "446.093750");
}

TEST_F(Cells, AFrequencyOfZeroIsNoValueWhileTheOtherIsSet) {
    EXPECT_EQ(cell(1), "X");
    EXPECT_EQ(cell(2), "145.000000");
    set(ChannelKey::TxFreq, 450'000'000);
    set(ChannelKey::RxFreq, 0.0);
    EXPECT_EQ(cell(1), "450.000000");
    EXPECT_EQ(cell(2), "X");
    set(ChannelKey::RxFreq, Empty{});
    EXPECT_EQ(cell(2), "X");
}

TEST_F(Cells, ATransmitToneIsHertzWithOneDecimal) {
    const std::vector<std::pair<Value, std::string_view>> cases{
        {67, "67.0 Hz"},      {67.0F, "67.0 Hz"},    {71.9F, "71.9 Hz"},      {103.5, "103.5 Hz"},
        {250.3F, "250.3 Hz"}, {71.95F, "72.0 Hz"},   {0.04, "0.0 Hz"},        {0, "Disabled"},
        {0.0F, "Disabled"},   {Empty{}, "Disabled"}, {text("0"), "Disabled"}, {text("123.0"), "123.0 Hz"},
        {-67, "-67.0 Hz"},
    };
    for (const auto& [stored, shown] : cases) {
        set(ChannelKey::TxSub, stored);
        EXPECT_EQ(cell(3), shown);
        set(ChannelKey::RxSub, stored);
        EXPECT_EQ(cell(4), shown);
    }
}

TEST_F(Cells, ADcsIndexShowsItsCodeOrInvalid) {
    const std::vector<std::pair<Value, std::string_view>> cases{
        {0, "023"},        {82, "754"},        {std::int16_t{14}, "114"}, {83, "Invalid"},
        {-1, "Invalid"},   {32767, "Invalid"}, {1e20, "Invalid"},         {82.5, "754"},
        {82.6, "Invalid"}, {Empty{}, "023"},   {text("1"), "025"},        {std::int64_t{-9'000'000'000}, "Invalid"},
    };
    set(ChannelKey::TxCTCSSDCS, true);
    set(ChannelKey::RxCTCSSDCS, true);
    for (const auto& [stored, shown] : cases) {
        set(ChannelKey::TxDCSIndex, stored);
        EXPECT_EQ(cell(3), shown);
        set(ChannelKey::RxDCSIndex, stored);
        EXPECT_EQ(cell(4), shown);
    }
}

TEST_F(Cells, TheSubtoneFlagAloneDecidesBetweenCodeAndTone) {
    set(ChannelKey::TxSub, 67.0F);
    set(ChannelKey::TxDCSIndex, 3);
    set(ChannelKey::ModeBits, 0x30);
    EXPECT_EQ(cell(3), "67.0 Hz");
    for (const auto& flag : std::vector<Value>{true, 1, -1, 2, 0.5}) {
        EXPECT_EQ(cellAnswering(3, ChannelKey::TxCTCSSDCS, flag), "031");
    }
    for (const auto& flag : std::vector<Value>{false, 0, Empty{}}) {
        EXPECT_EQ(cellAnswering(3, ChannelKey::TxCTCSSDCS, flag), "67.0 Hz");
    }
}

TEST_F(Cells, MultipleReceiveTonesComeBeforeTheToneAndAfterDcs) {
    set(ChannelKey::RxSub, 67.0F);
    set(ChannelKey::TxSub, 67.0F);
    set(ChannelKey::ModeBits, 0x04);
    EXPECT_EQ(cell(4), "Multiple");
    EXPECT_EQ(cell(3), "67.0 Hz");
    set(ChannelKey::ModeBits, 0xFB);
    EXPECT_EQ(cell(4), "67.0 Hz");
    set(ChannelKey::RxSub, 0);
    set(ChannelKey::ModeBits, 0xFF);
    EXPECT_EQ(cell(4), "Multiple");
    set(ChannelKey::RxCTCSSDCS, true);
    set(ChannelKey::RxDCSIndex, 82);
    EXPECT_EQ(cell(4), "754");
}

TEST_F(Cells, ModesAreReadFromModeBitsAndTheirFlags) {
    set(ChannelKey::ModeBits, 0x00);
    EXPECT_EQ(cell(5), "Duplex");
    set(ChannelKey::ModeBits, 0x01);
    EXPECT_EQ(cell(5), "Simplex");
    set(ChannelKey::ModeBits, 0x03);
    EXPECT_EQ(cell(5), "Repeater");
    set(ChannelKey::p25RepeaterEnable, true);
    EXPECT_EQ(cell(5), "Mixed Mode");
    EXPECT_EQ(cellAnswering(5, ChannelKey::p25RepeaterEnable, 1), "Repeater");
    set(ChannelKey::ModeBits, 0x81);
    EXPECT_EQ(cell(5), "P25 Repeater");

    set(ChannelKey::P25TransmitMode, true);
    EXPECT_EQ(cell(8), "P25 Digital");
    EXPECT_EQ(cellAnswering(8, ChannelKey::P25TransmitMode, 1), "Analogue");
    set(ChannelKey::ModeBits, 0x01);
    EXPECT_EQ(cell(8), "Analogue");
}

TEST_F(Cells, BandwidthFollowsTheRadioFirstAndTheChannelThen) {
    EXPECT_EQ(cell(7), "Wide");
    set(ChannelKey::ModeBits, 0x80);
    EXPECT_EQ(cell(7), "Narrow");
    set(ChannelKey::ModeBits, 0x7F);
    set(StoreMember::FCCNarrowBandRadio, true);
    EXPECT_EQ(cell(7), "Narrow");
    set(StoreMember::BandwidthSwitchable, false);
    EXPECT_EQ(cell(7), "N/A");
}

TEST_F(Cells, FlagsAreYesOrNo) {
    for (const auto& [column, key] : {std::pair{6, ChannelKey::scan}, std::pair{23, ChannelKey::p25RepeaterEnable}}) {
        for (const auto& value : std::vector<Value>{true, 1, -1, 2, 0.5, text("True")}) {
            EXPECT_EQ(cellAnswering(column, key, value), "Yes");
        }
        for (const auto& value : std::vector<Value>{false, 0, Empty{}, text("False")}) {
            EXPECT_EQ(cellAnswering(column, key, value), "No");
        }
    }
}

TEST_F(Cells, PlainSettingsAreShownAsStored) {
    const std::vector<std::pair<int, ChannelKey>> settings{
        {9, ChannelKey::TxPower},
        {11, ChannelKey::VCODev},
        {12, ChannelKey::RefOscDev},
        {14, ChannelKey::NBVCODev},
        {15, ChannelKey::NBRefOscDev},
        {16, ChannelKey::TxLevel},
        {18, ChannelKey::BinMain},
        {21, ChannelKey::RxBinMain},
        {24, ChannelKey::P25TalkgroupID},
        {25, ChannelKey::P25TxNetworkAccessCode},
        {26, ChannelKey::P25RxNetworkAccessCode},
    };
    const std::vector<std::pair<Value, std::string_view>> cases{
        {0, "0"},       {255, "255"},           {std::int16_t{-1}, "-1"}, {3.0, "3"},
        {2.5F, "2.5"},  {text("0293"), "0293"}, {text(" f0 "), " f0 "},   {Empty{}, ""},
        {true, "True"},
    };
    for (const auto& [column, key] : settings) {
        for (const auto& [stored, shown] : cases) {
            EXPECT_EQ(cellAnswering(column, key, stored), shown)
                << editing::columns.at(static_cast<std::size_t>(column)).header;
        }
    }
}

TEST_F(Cells, TheReferenceBiasIsShownInverted) {
    const std::vector<std::pair<Value, std::string_view>> cases{
        {0, "255"},     {255, "0"},      {128, "127"},  {std::int16_t{256}, "-1"}, {-32768, "33023"}, {Empty{}, "255"},
        {0.5, "254.5"}, {0.5F, "254.5"}, {true, "256"}, {text("5"), "250"},
    };
    for (const auto& [stored, shown] : cases) {
        EXPECT_EQ(cellAnswering(10, ChannelKey::RefOscFreq, stored), shown);
        EXPECT_EQ(cellAnswering(13, ChannelKey::NBRefOscFreq, stored), shown);
    }
}

TEST_F(Cells, TheNarrowBandBiasOfOldHardwareIsTheWideBandOne) {
    set(ChannelKey::RefOscFreq, 5);
    set(ChannelKey::NBRefOscFreq, 55);
    const std::vector<std::pair<Value, std::string_view>> cases{
        {2.9F, "200"},
        {2.9, "200"},
        {3.0F, "200"},
        {text("2.9"), "200"},
        // One below in single precision, and one that only a double tells from 2.9.
        {2.8999998F, "250"},
        {2.89999999, "200"},
        {2.8, "250"},
        {2, "250"},
        {Empty{}, "250"},
    };
    for (const auto& [revision, shown] : cases) {
        AnsweringStore foreign(store);
        foreign.answer(StoreMember::HardwareRevision, revision);
        EXPECT_EQ(renderedRow(foreign, channel)[13], shown) << base::toText(revision);
        EXPECT_EQ(renderedRow(foreign, channel)[10], "250");
    }
}

TEST_F(Cells, ARadioOfFixedBandwidthHasNoNarrowBandLevels) {
    set(StoreMember::BandwidthSwitchable, false);
    const auto row = renderedRow(store, channel);
    EXPECT_EQ(row[7], "N/A");
    EXPECT_EQ(row[12], "128");
    EXPECT_EQ(row[13], "X");
    EXPECT_EQ(row[14], "X");
    EXPECT_EQ(row[15], "X");
    EXPECT_EQ(row[16], "0");
}

TEST_F(Cells, StepsAreKilohertzWithTheDecimalsTheyNeed) {
    const std::vector<std::pair<Value, std::string_view>> cases{
        {6250, "6.25"},         {12500, "12.5"},          {5000, "5"},       {0, "0"},
        {25500, "25.5"},        {3125, "3.125"},          {500, "0.5"},      {1, "0.001"},
        {5200.0, "5.2"},        {5199.9998, "5.1999998"}, {6250.0F, "6.25"}, {5200.0F, "5.2"},
        {8333.25F, "8.33325"},  {5199.9995F, "5.199999"}, {-6250, "-6.25"},  {Empty{}, "0"},
        {text("6250"), "6.25"}, {0.01, "1E-05"},
    };
    for (const auto& [stored, shown] : cases) {
        EXPECT_EQ(cellAnswering(17, ChannelKey::SynthStep, stored), shown);
        EXPECT_EQ(cellAnswering(20, ChannelKey::RxSynthStep, stored), shown);
    }
}

TEST_F(Cells, ModuloIsEightForTheSelectorOneAndElseFive) {
    const std::vector<std::pair<Value, std::string_view>> cases{
        {1, "8"}, {1.0, "8"}, {text("1"), "8"}, {0, "5"},    {2, "5"},
        {5, "5"}, {8, "5"},   {-1, "5"},        {true, "5"}, {Empty{}, "5"},
    };
    for (const auto& [stored, shown] : cases) {
        EXPECT_EQ(cellAnswering(19, ChannelKey::Modulo, stored), shown);
        EXPECT_EQ(cellAnswering(22, ChannelKey::RxModulo, stored), shown);
    }
}

TEST_F(Cells, NumbersTakeTheSeparatorOfTheFormat) {
    constexpr base::NumberFormat comma{.decimalSeparator = ','};
    set(ChannelKey::TxSub, 71.9F);
    set(ChannelKey::SynthStep, 6250);
    set(ChannelKey::P25TalkgroupID, text("1.23"));
    EXPECT_EQ(cell(2, comma), "145,000000");
    EXPECT_EQ(cell(3, comma), "71,9 Hz");
    EXPECT_EQ(cell(17, comma), "6,25");
    EXPECT_EQ(cell(24, comma), "1.23");
}

TEST_F(Cells, OfAnUnconfiguredChannelHaveNoValueWhateverElseIsStored) {
    fillDistinct(store, channel);
    set(ChannelKey::TxFreq, 0);
    set(ChannelKey::RxFreq, 0.0);
    RecordingStore recording(store);
    std::vector<std::int16_t> order;
    editing::renderRow({.store = recording, .channel = channel}, [&](std::int16_t column, const std::string& shown) {
        order.push_back(column);
        EXPECT_EQ(shown, "X") << column;
    });
    std::vector<std::int16_t> ascending;
    for (std::int16_t column = 1; column <= 26; ++column) {
        ascending.push_back(column);
    }
    EXPECT_EQ(order, ascending);
    EXPECT_EQ(recording.calls(), (std::vector<std::string>{"ChannelTable(6).TxFreq", "ChannelTable(6).RxFreq"}));
}

TEST_F(Cells, AValueOfTheWrongKindFailsAsATypeMismatch) {
    set(ChannelKey::TxFreq, 145'000'000);
    for (const auto key : {ChannelKey::TxFreq,
                           ChannelKey::RxFreq,
                           ChannelKey::TxCTCSSDCS,
                           ChannelKey::TxSub,
                           ChannelKey::RxCTCSSDCS,
                           ChannelKey::RxSub,
                           ChannelKey::ModeBits,
                           ChannelKey::scan,
                           ChannelKey::TxLevel,
                           ChannelKey::SynthStep,
                           ChannelKey::BinMain,
                           ChannelKey::Modulo,
                           ChannelKey::RxSynthStep,
                           ChannelKey::RxBinMain,
                           ChannelKey::RxModulo,
                           ChannelKey::TxPower,
                           ChannelKey::RefOscFreq,
                           ChannelKey::VCODev,
                           ChannelKey::RefOscDev,
                           ChannelKey::NBRefOscFreq,
                           ChannelKey::NBVCODev,
                           ChannelKey::NBRefOscDev,
                           ChannelKey::P25TransmitMode,
                           ChannelKey::p25RepeaterEnable,
                           ChannelKey::P25TxNetworkAccessCode,
                           ChannelKey::P25RxNetworkAccessCode,
                           ChannelKey::P25TalkgroupID}) {
        EXPECT_THROW((void)cellAnswering(1, key, Unusable{}), base::ConversionFailure) << model::infoOf(key).name;
    }
    for (const auto member :
         {StoreMember::BandwidthSwitchable, StoreMember::FCCNarrowBandRadio, StoreMember::HardwareRevision}) {
        AnsweringStore foreign(store);
        foreign.answer(member, text("unknown"));
        EXPECT_THROW((void)renderedRow(foreign, channel), base::ConversionFailure) << model::infoOf(member).name;
    }
}

TEST_F(Cells, AChannelOutsideTheTableFails) {
    EXPECT_THROW((void)renderedRow(store, 0), base::SubscriptFailure);
    EXPECT_THROW((void)renderedRow(store, 256), base::SubscriptFailure);
}

// What is asked of the store for one channel, and the column whose cell needs it; column 0 stands for the question
// whether the channel is configured at all.
struct ColumnRead {
    std::int16_t column;
    std::string call;
};

[[nodiscard]] ColumnRead key(std::int16_t column, const std::string& name) {
    return {column, "ChannelTable(6)." + name};
}

[[nodiscard]] std::vector<ColumnRead> expectedReads() {
    return {
        key(0, "TxFreq"),
        key(0, "RxFreq"),
        key(1, "TxFreq"),
        key(2, "RxFreq"),
        key(3, "TxCTCSSDCS"),
        key(3, "TxSub"),
        key(4, "RxCTCSSDCS"),
        key(4, "ModeBits"),
        key(4, "RxSub"),
        key(5, "ModeBits"),
        key(5, "p25RepeaterEnable"),
        key(6, "scan"),
        {7, "BandwidthSwitchable"},
        key(7, "ModeBits"),
        {7, "FCCNarrowBandRadio"},
        key(8, "ModeBits"),
        key(8, "P25TransmitMode"),
        key(16, "TxLevel"),
        key(17, "SynthStep"),
        key(20, "RxSynthStep"),
        key(19, "Modulo"),
        key(22, "RxModulo"),
        key(9, "TxPower"),
        key(10, "RefOscFreq"),
        key(11, "VCODev"),
        key(12, "RefOscDev"),
        key(18, "BinMain"),
        key(21, "RxBinMain"),
        {13, "BandwidthSwitchable"},
        {13, "HardwareRevision"},
        key(13, "NBRefOscFreq"),
        {14, "BandwidthSwitchable"},
        key(14, "NBVCODev"),
        {15, "BandwidthSwitchable"},
        key(15, "NBRefOscDev"),
        key(23, "p25RepeaterEnable"),
        key(24, "P25TalkgroupID"),
        key(25, "P25TxNetworkAccessCode"),
        key(26, "P25RxNetworkAccessCode"),
    };
}

TEST_F(Cells, AreReadInTheOrderOfTheRowEachWhenItIsNeeded) {
    RecordingStore recording(store);
    std::vector<std::pair<std::int16_t, std::string>> log;
    std::size_t reported = 0;
    editing::renderRow({.store = recording, .channel = channel}, [&](std::int16_t column, const std::string&) {
        for (; reported < recording.calls().size(); ++reported) {
            log.emplace_back(column, recording.calls()[reported]);
        }
    });
    std::vector<std::pair<std::int16_t, std::string>> expected;
    for (const auto& read : expectedReads()) {
        // The first two questions come before any cell, so the first cell finds them asked.
        expected.emplace_back(read.column == 0 ? std::int16_t{1} : read.column, read.call);
    }
    EXPECT_EQ(log, expected);
}

TEST_F(Cells, ReadOnlyWhatTheirTextDependsOn) {
    set(ChannelKey::TxCTCSSDCS, true);
    set(ChannelKey::RxCTCSSDCS, true);
    set(StoreMember::BandwidthSwitchable, false);
    RecordingStore recording(store);
    const auto readsOf = [&](int column) {
        recording.forget();
        (void)editing::columns.at(static_cast<std::size_t>(column)).render({.store = recording, .channel = channel});
        return recording.calls();
    };
    using Reads = std::vector<std::string>;
    EXPECT_EQ(readsOf(0), Reads{});
    EXPECT_EQ(readsOf(3), (Reads{"ChannelTable(6).TxCTCSSDCS", "ChannelTable(6).TxDCSIndex"}));
    EXPECT_EQ(readsOf(4), (Reads{"ChannelTable(6).RxCTCSSDCS", "ChannelTable(6).RxDCSIndex"}));
    EXPECT_EQ(readsOf(7), (Reads{"BandwidthSwitchable"}));
    EXPECT_EQ(readsOf(13), (Reads{"BandwidthSwitchable"}));
    EXPECT_EQ(readsOf(14), (Reads{"BandwidthSwitchable"}));
    EXPECT_EQ(readsOf(15), (Reads{"BandwidthSwitchable"}));
    set(StoreMember::BandwidthSwitchable, true);
    set(StoreMember::HardwareRevision, 2.8F);
    EXPECT_EQ(readsOf(13), (Reads{"BandwidthSwitchable", "HardwareRevision", "ChannelTable(6).RefOscFreq"}));
    set(ChannelKey::RxCTCSSDCS, false);
    set(ChannelKey::ModeBits, 4);
    EXPECT_EQ(readsOf(4), (Reads{"ChannelTable(6).RxCTCSSDCS", "ChannelTable(6).ModeBits"}));
}

TEST_F(Cells, BeforeAFailingReadAreWrittenAndTheOthersAreNot) {
    const auto whole = renderedRow(store, channel);
    const auto reads = expectedReads();
    FailingStore failing(store);
    for (std::size_t n = 1; n <= reads.size(); ++n) {
        failing.failAt(static_cast<int>(n));
        RowTexts written;
        const auto render = [&] {
            editing::renderRow({.store = failing, .channel = channel},
                               [&](std::int16_t column, const std::string& shown) {
                                   written.at(static_cast<std::size_t>(column)) = shown;
                               });
        };
        EXPECT_THROW(render(), base::Failure) << "read " << n;
        EXPECT_EQ(failing.calls(), static_cast<int>(n));

        RowTexts expected;
        const auto failingColumn = reads[n - 1].column;
        for (std::size_t earlier = 0; earlier < n - 1; ++earlier) {
            const auto column = reads[earlier].column;
            if (column != 0 && column != failingColumn) {
                expected.at(static_cast<std::size_t>(column)) = whole.at(static_cast<std::size_t>(column));
            }
        }
        EXPECT_EQ(written, expected) << "read " << n << ", " << reads[n - 1].call;
    }
    failing.failAt(static_cast<int>(reads.size()) + 1);
    EXPECT_EQ(renderedRow(failing, channel), whole);
}

TEST_F(Cells, ReachTheSinkEvenIfItsOwnFailureEndsTheRow) {
    int cells = 0;
    const auto render = [&] {
        editing::renderRow({.store = store, .channel = channel}, [&](std::int16_t, const std::string&) {
            if (++cells == 5) {
                throw base::Failure("the grid is gone");
            }
        });
    };
    EXPECT_THROW(render(), base::Failure);
    EXPECT_EQ(cells, 5);
}

TEST(Row, OfEveryChannelOfAFullTableHasATextInEveryColumn) {
    const auto store = fullStore();
    for (std::int16_t channel = 1; channel <= model::channelCount; ++channel) {
        const auto row = renderedRow(*store, channel);
        for (std::size_t column = 1; column < row.size(); ++column) {
            EXPECT_FALSE(row.at(column).empty()) << channel << ", " << column;
        }
    }
}

}  // namespace
}  // namespace telvar::tests
