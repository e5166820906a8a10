// The verdict on every column's text, with the exact words: as a table of cells, then what the radio and its store
// decide.
#include "editing/validators.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "base/failure.h"
#include "failing_memory.h"
#include "support/answering_store.h"
#include "support/failing_store.h"
#include "support/table_builder.h"

namespace telvar::tests {
namespace {

using base::Unusable;
using editing::validateCell;
using model::ChannelKey;
using model::StoreMember;

const std::string frequencyRange = "Invalid channel frequency value (out of range) RX Freq";
const std::string frequencyMismatch = "Error in validating channel frequency (Type mismatch) RX Freq";
const std::string frequencyOverflow = "Error in validating channel frequency (Overflow) RX Freq";
const std::string tone = "Invalid CTCSS value (out of range, must be 65Hz to 257Hz) ";
const std::string dcs = "Invalid DCS value (not found in the table) ";
const std::string step = "Invalid Synthesizer Step size value (out of range) ";
const std::string stepMismatch = "Error in validating Synthesizer step size (Type mismatch) ";
const std::string pot = "Invalid pot value (out of range) ";
const std::string potMismatch = "Error in validating Pot Value (Type mismatch) ";

struct CellCase {
    std::int16_t column;
    std::string text;
    std::string verdict;  // empty: accepted
};

class Validators : public testing::Test {
protected:
    [[nodiscard]] std::string verdict(std::int16_t column, const std::string& text) {
        return validateCell({.store = store_, .channel = 7, .format = format_}, column, text);
    }
    void expect(const std::vector<CellCase>& cases) {
        for (const auto& cell : cases) {
            EXPECT_EQ(verdict(cell.column, cell.text), cell.verdict)
                << "column " << cell.column << " [" << cell.text << "]";
        }
    }

    model::MemoryDataStore store_;
    base::NumberFormat format_{};
};

TEST_F(Validators, AColumnOutsideTheTableIsUnknownAndHasNoName) {
    for (const std::int16_t column : std::vector<std::int16_t>{-32768, -1, 0, 27, 255, 32767}) {
        EXPECT_EQ(verdict(column, "X"), "Unknown Column type") << column;
    }
}

TEST_F(Validators, AFrequencyIsZeroOrTenToAThousandMegahertz) {
    for (const std::int16_t column : std::vector<std::int16_t>{1, 2}) {
        expect({{column, "X", ""},
                {column, "0", ""},
                {column, "-0", ""},
                {column, "0.0", ""},
                {column, "10", ""},
                {column, "1000", ""},
                {column, "145.5", ""},
                {column, " 145.5 ", ""},
                {column, "1.455e2", ""},
                {column, "9.999999", frequencyRange},
                {column, "9.9999999999999982", frequencyRange},
                {column, "1000.000001", frequencyRange},
                {column, "1000.0000000000001", frequencyRange},
                {column, "-145", frequencyRange},
                {column, "1e308", frequencyRange},
                {column, "1e309", frequencyOverflow},
                {column, "x", frequencyMismatch},
                {column, " X", frequencyMismatch},
                {column, "", frequencyMismatch},
                {column, " ", frequencyMismatch},
                {column, "\t145", frequencyMismatch},
                {column, "145,5", frequencyMismatch},
                {column, "145.5MHz", frequencyMismatch},
                {column, "145.5\n", frequencyMismatch},
                {column, std::string("145\0", 4), frequencyMismatch},
                {column,
                 "\xC2\xA0"
                 "145",
                 frequencyMismatch},
                {column, std::string(100'000, '1'), frequencyOverflow},
                {column, std::string(100'000, 'z'), frequencyMismatch}});
    }
}

TEST_F(Validators, ADecimalCommaIsReadWhereTheUserWritesOne) {
    format_.decimalSeparator = ',';
    expect({{1, "145,5", ""},
            {1, "145.5", frequencyMismatch},
            {3, "123,0Hz", ""},
            {17, "12,5", ""},
            {17, "12.5", stepMismatch + "TX Synth Step Size"}});
}

TEST_F(Validators, ASubtoneIsDisabledOrATone) {
    struct Side {
        std::int16_t column;
        std::string name;
    };
    for (const auto& [column, name] : {Side{3, "TX Subtone"}, Side{4, "RX Subtone"}}) {
        expect({{column, "DISABLED", ""},
                {column, " disabled ", ""},
                {column, "65Hz", ""},
                {column, "257Hz", ""},
                {column, "123.0 Hz", ""},
                {column, "0Hz", ""},
                {column, " 100.0Hz ", ""},
                {column, "100Hz Hz", ""},
                {column, "64Hz", tone + name},
                {column, "64.9Hz", tone + name},
                {column, "64.99999Hz", tone + name},
                {column, "257.1Hz", tone + name},
                {column, "257.0001Hz", tone + name},
                // Nearer than single precision can tell.
                {column, "257.000001Hz", ""},
                {column, "-100Hz", tone + name},
                {column, "ABCHz", "Error in validating subtone (Type mismatch) " + name},
                {column, "Hz", "Error in validating subtone (Type mismatch) " + name},
                {column, "1e39Hz", "Error in validating subtone (Overflow) " + name},
                // Only "Hz" as it is written makes a tone.
                {column, "100hz", dcs + name},
                {column, "100HZ", dcs + name},
                {column, "100", dcs + name}});
    }
}

TEST_F(Validators, ADcsCodeIsOneEntryOfTheListToTheLetter) {
    expect({{3, "023", ""},
            {3, "754", ""},
            {3, "023 ", ""},
            {4, " 754", ""},
            {3, "23", dcs + "TX Subtone"},
            {3, "D023", dcs + "TX Subtone"},
            {3, "755", dcs + "TX Subtone"},
            {4, "", dcs + "RX Subtone"},
            {4, "023\t", dcs + "RX Subtone"}});
}

TEST_F(Validators, MultipleIsForTheReceiverOnly) {
    expect({{4, "MULTIPLE", ""},
            {4, " multiple ", ""},
            {3, "MULTIPLE", dcs + "TX Subtone"},
            {3, "Multiple", dcs + "TX Subtone"}});
}

TEST_F(Validators, TheRfModesThatEveryRadioHasNeedNoCapability) {
    FailingStore failing(store_);
    failing.failAt(1, FailureSpan::FromThereOn);
    for (const std::string text : {"DUPLEX", "duplex", " Simplex ", "Repeater"}) {
        EXPECT_EQ(validateCell({.store = failing, .channel = 7}, 5, text), "") << text;
    }
    EXPECT_EQ(validateCell({.store = failing, .channel = 7}, 5, "P25"), "Unknown RF Mode value RF Mode");
    EXPECT_EQ(failing.calls(), 0);
}

TEST_F(Validators, TheP25ModesNeedABoardOrConfigurationSeven) {
    struct Radio {
        bool board;
        std::int32_t code;
        bool accepts;
    };
    for (const auto& radio : {Radio{false, 0, false}, Radio{false, 6, false}, Radio{false, 7, true},
                              Radio{true, 0, true}, Radio{true, 7, true}}) {
        store_.put(StoreMember::P25BoardFitted, radio.board);
        store_.put(StoreMember::RadioConfigurationCode, radio.code);
        for (const std::string text : {"P25 REPEATER", "p25 repeater", " Mixed Mode "}) {
            EXPECT_EQ(verdict(5, text),
                      radio.accepts ? "" : "Invalid value, there is no P25 board fitted for this mode RF Mode")
                << text << ", code " << radio.code;
        }
    }
}

TEST_F(Validators, ScanIsYesOrNo) {
    expect({{6, "YES", ""},
            {6, " no ", ""},
            {6, "True", "Invalid scan data value Scan"},
            {6, "", "Invalid scan data value Scan"},
            {6, "YES\t", "Invalid scan data value Scan"}});
}

TEST_F(Validators, ASwitchableRadioTakesWideAndNarrow) {
    expect({{7, "Wide", ""},
            {7, " NARROW ", ""},
            {7, "N/A", "Invalid value for Wide/Narrow band (must be Wide or Narrow) WB/NB"},
            {7, "X", "Unknown value for Wide/Narrow band setting WB/NB"},
            {7, "", "Unknown value for Wide/Narrow band setting WB/NB"}});
}

TEST_F(Validators, ANarrowBandOnlyRadioRefusesWide) {
    store_.put(StoreMember::FCCNarrowBandRadio, true);
    expect({{7, "Wide", "Invalid value, this radio cannot be set to Wide band (FCC NB) WB/NB"}, {7, "Narrow", ""}});
}

TEST_F(Validators, ARadioOfFixedBandwidthTakesOnlyNotAvailable) {
    store_.put(StoreMember::BandwidthSwitchable, false);
    const std::string fixed =
        "Invalid value for Wide/Narrow band (Wide or Narrow band are not available for fixed bandwidth radio) WB/NB";
    expect({{7, "Wide", fixed}, {7, "Narrow", fixed}, {7, "n/a", ""}});
}

TEST_F(Validators, TheExternalPttModeIsAnalogueOrDigital) {
    expect({{8, "ANALOGUE", ""},
            {8, " P25 Digital", ""},
            {8, "Analog", "Invalid External PTT Mode value External PTT Mode"},
            {8, "Yes", "Invalid External PTT Mode value External PTT Mode"}});
}

TEST_F(Validators, LevelsAndBinaryMainsRunFromZeroTo255) {
    struct Level {
        std::int16_t column;
        std::string name;
    };
    for (const auto& [column, name] :
         {Level{9, "TX Power"}, Level{10, "Ref Osc Freq WB"}, Level{11, "VCO Lvl WB"}, Level{12, "Ref Osc Lvl WB"},
          Level{13, "Ref Osc Freq NB"}, Level{14, "VCO Lvl NB"}, Level{15, "Ref Osc Lvl NB"},
          Level{18, "TX Binary Main"}, Level{21, "RX Binary Main"}}) {
        expect({{column, "0", ""},
                {column, "255", ""},
                {column, " 128 ", ""},
                // Rounded half to even before the bounds are looked at.
                {column, "255.5", pot + name},
                {column, "255.4", ""},
                {column, "-0.5", ""},
                {column, "-0.6", pot + name},
                {column, "-1", pot + name},
                {column, "256", pot + name},
                {column, "32767", pot + name},
                {column, "32768", "Error in validating Pot Value (Overflow) " + name},
                {column, "X", potMismatch + name},
                {column, "", potMismatch + name},
                {column, "&H10", potMismatch + name}});
    }
}

TEST_F(Validators, TheSubtoneLevelRunsFromZeroToSix) {
    expect({{16, "0", ""},
            {16, "6", ""},
            {16, "6.5", ""},
            {16, "6.6", "Invalid subtone level value (out of range) Subtone Level"},
            {16, "-1", "Invalid subtone level value (out of range) Subtone Level"},
            {16, "7", "Invalid subtone level value (out of range) Subtone Level"},
            {16, "seven", "Error in validating Subtone Level Value (Type mismatch) Subtone Level"}});
}

TEST_F(Validators, AStepIsAboveZeroAndUpTo25AndAHalfKilohertz) {
    struct Side {
        std::int16_t column;
        std::string name;
    };
    for (const auto& [column, name] : {Side{17, "TX Synth Step Size"}, Side{20, "RX Synth Step Size"}}) {
        expect({{column, "25.5", ""},
                {column, "12", ""},
                {column, "0.000001", ""},
                // The same single as 25.5.
                {column, "25.5000001", ""},
                {column, "25.500002", step + name},
                {column, "25.6", step + name},
                {column, "30", step + name},
                {column, "0", step + name},
                {column, "-12.5", step + name},
                {column, "1e-60", step + name},
                {column, "12.5kHz", stepMismatch + name},
                {column, "", stepMismatch + name}});
    }
}

TEST_F(Validators, AModuloIsFiveOrEightWithoutBlanks) {
    expect({{19, "5", ""},
            {22, "8", ""},
            {19, " 5", "Invalid modulo value TX Modulo"},
            {22, "8 ", "Invalid modulo value RX Modulo"},
            {19, "05", "Invalid modulo value TX Modulo"},
            {22, "", "Invalid modulo value RX Modulo"}});
}

TEST_F(Validators, AP25RepeaterIsAlwaysAcceptedYetItsModeIsRead) {
    store_.channel(7).put(ChannelKey::ModeBits, std::int32_t{0});
    expect({{23, "YES", ""},
            {23, " yes ", ""},
            {23, "NO", ""},
            {23, "1", "Invalid P25 Repeater enable value P25 Repeater Enable"}});
    FailingStore failing(store_);
    failing.failAt(1);
    EXPECT_THROW(static_cast<void>(validateCell({.store = failing, .channel = 7}, 23, "YES")), base::Failure);
    EXPECT_EQ(failing.calls(), 1);
}

TEST_F(Validators, ACodeIsFourHexadecimalDigitsOrFewerAndPadded) {
    struct Code {
        std::int16_t column;
        std::string error;
    };
    for (const auto& [column, error] :
         {Code{24, "Invalid P25 Talkgroup value P25 Talkgroup ID"}, Code{25, "Invalid P25 NAC value P25 TX NAC"},
          Code{26, "Invalid P25 NAC value P25 RX NAC"}}) {
        expect({{column, "293", ""},
                {column, "1", ""},
                {column, " 1 ", ""},
                {column, "", ""},
                {column, "aF09", ""},
                {column, "0293", ""},
                {column, "0293 ", error},
                {column, "12345", error},
                {column, "12G4", error},
                {column, "1 2", error},
                {column, "-123", error},
                {column, "0x12", error},
                {column, "\xC3\xA9\xC3\xA9", error}});
    }
}

// A code is neither converted nor looked up; only its copy can fail.
TEST_F(Validators, ACodeThatCannotBeValidatedIsToldAsSuch) {
    const std::string longCode(100, 'F');
    const auto withoutMemory = [&](std::int16_t column) {
        const FailingMemory full;
        return verdict(column, longCode);
    };
    EXPECT_EQ(withoutMemory(24), "Error in validating P25 Talkgroup (std::bad_alloc) P25 Talkgroup ID");
    EXPECT_EQ(withoutMemory(25), "Error in validating P25 NAC (std::bad_alloc) P25 TX NAC");
    EXPECT_EQ(withoutMemory(26), "Error in validating P25 NAC (std::bad_alloc) P25 RX NAC");
}

TEST_F(Validators, AFailingStoreReachesTheCallerExceptWhereTheBandwidthTrapsIt) {
    FailingStore failing(store_);
    const editing::CellContext context{.store = failing, .channel = 7};
    failing.failAt(1);
    EXPECT_THROW(static_cast<void>(validateCell(context, 5, "Mixed Mode")), base::Failure);
    failing.failAt(2);
    EXPECT_THROW(static_cast<void>(validateCell(context, 5, "Mixed Mode")), base::Failure);
    failing.failAt(1);
    EXPECT_EQ(validateCell(context, 7, "Wide"),
              std::string("Error in validating Wide/Narrow band setting (") + FailingStore::description + ") WB/NB");
}

TEST_F(Validators, ACapabilityOfAWrongTypeIsAFailureNotAVerdict) {
    AnsweringStore odd(store_);
    odd.answer(StoreMember::P25BoardFitted, Unusable{});
    odd.answer(StoreMember::BandwidthSwitchable, Unusable{});
    EXPECT_THROW(static_cast<void>(validateCell({.store = odd, .channel = 7}, 5, "P25 Repeater")), base::Failure);
    EXPECT_EQ(validateCell({.store = odd, .channel = 7}, 7, "N/A"),
              "Error in validating Wide/Narrow band setting (Type mismatch) WB/NB");
}

TEST_F(Validators, NothingIsChangedByAVerdict) {
    const auto before = store_.revision();
    for (std::int16_t column = 1; column <= editing::lastColumn; ++column) {
        for (const std::string text : {"X", "1", "YES", "Narrow", "100 Hz"}) {
            static_cast<void>(verdict(column, text));
        }
    }
    EXPECT_EQ(store_.revision(), before);
}

TEST_F(Validators, OnlyDigitsAreHexadecimalAndAnEmptyTextIs) {
    EXPECT_TRUE(editing::isHexadecimal(""));
    EXPECT_TRUE(editing::isHexadecimal("0123456789abcdefABCDEF"));
    for (const char other : {'g', 'G', '/', ':', '@', '`', ' ', '\0', '-', '\xE9'}) {
        EXPECT_FALSE(editing::isHexadecimal(std::string(1, other))) << static_cast<int>(other);
    }
}

}  // namespace
}  // namespace telvar::tests
