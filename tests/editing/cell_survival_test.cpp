// What a copied cell or row becomes where it is pasted: every cell that a column can show survives by itself; a whole
// row does not always, and these are all the reasons.
#include <array>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "editing/cell_storing.h"
#include "editing/validators.h"
#include "editing_world.h"

namespace telvar::tests {
namespace {

constexpr std::int16_t source = 5;
constexpr std::int16_t target = 9;

using Values = std::vector<base::Value>;

class Survival : public EditingWorld {
protected:
    Survival() {
        fillDistinct(*table, source);
        fillDistinct(*table, target);
        table->put(StoreMember::P25BoardFitted, true);
    }
    void put(std::int16_t channel, ChannelKey key, const base::Value& value) {
        table->channel(channel).put(key, value);
    }
    [[nodiscard]] bool accepts(std::int16_t column, const std::string& text) {
        return editing::validateCell({.store = *table, .channel = target, .format = {}}, column, text).empty();
    }
    // The cell's text before, and where it was pasted.
    std::pair<std::string, std::string> carry(std::int16_t column) {
        grid.setCurrent({source, column});
        commands.CopySelection();
        grid.setCurrent({target, column});
        commands.PasteToCells();
        return {grid.text(source, column), grid.text(target, column)};
    }
    // The whole row's texts, and where they were pasted.
    std::pair<std::string, std::string> carryRow(int firstColumn = 1, int lastColumn = 26) {
        select({source, firstColumn}, {source, lastColumn});
        commands.CopySelection();
        const auto copied = desktop.clipboard.value_or("");
        grid.setCurrent({target, firstColumn});
        commands.PasteToCells();
        select({target, firstColumn}, {target, lastColumn});
        commands.CopySelection();
        return {copied, desktop.clipboard.value_or("")};
    }
    void show() {
        render(source);
        render(target);
    }
};

// -- single cells ----------------------------------------------------------------------------------------------------

[[nodiscard]] Values wholeNumbers(int first, int last) {
    Values values;
    for (int value = first; value <= last; ++value) {
        values.emplace_back(static_cast<std::int16_t>(value));
    }
    return values;
}

// Everything that the key may hold, or enough of it, and some that it may not.
[[nodiscard]] Values valuesOf(const model::ChannelKeyInfo& info) {
    switch (info.kind) {
    case model::KeyKind::Frequency:
        return {0,   10'000'000, 145'500'000.4,   145'500'000.5, 450'012'500,       999'999'999.0, 1e9,
                5e9, 9'999'999,  1'000'000'001.0, 123'456'789.0, 30'000'000.000001, 1e7 - 1};
    case model::KeyKind::Tone: {
        Values tones{0.0F, 64.96F, 64.94F, 257.04F, 257.06F, 300.0F, std::int16_t{100}, 100.25, 67.05};
        for (int tenth = 650; tenth <= 2570; ++tenth) {
            tones.emplace_back(static_cast<float>(tenth) / 10.0F);
        }
        return tones;
    }
    case model::KeyKind::Step: {
        Values steps;
        for (int hertz = 0; hertz <= 25'750; hertz += 125) {
            steps.emplace_back(hertz);
        }
        return steps;
    }
    case model::KeyKind::Boolean:
        return {false, true};
    case model::KeyKind::Code: {
        Values codes{base::textValue("0000"), base::textValue("FFFF"), base::textValue("1a2B"),
                     base::textValue("12345"), base::textValue("zz")};
        // A shorter talkgroup is padded.
        if (info.key != ChannelKey::P25TalkgroupID) {
            codes.push_back(base::textValue("12"));
        }
        return codes;
    }
    case model::KeyKind::Integer:
        break;
    }
    return wholeNumbers(-2, 257);
}

// The keys that a column shows.
const std::map<std::int16_t, std::vector<ChannelKey>> keysOfColumns{
    {1, {ChannelKey::TxFreq}},
    {2, {ChannelKey::RxFreq}},
    {3, {ChannelKey::TxCTCSSDCS, ChannelKey::TxDCSIndex, ChannelKey::TxSub}},
    {4, {ChannelKey::RxCTCSSDCS, ChannelKey::RxDCSIndex, ChannelKey::RxSub, ChannelKey::ModeBits}},
    {5, {ChannelKey::p25RepeaterEnable, ChannelKey::ModeBits}},
    {6, {ChannelKey::scan}},
    {7, {ChannelKey::ModeBits}},
    {8, {ChannelKey::P25TransmitMode, ChannelKey::ModeBits}},
    {9, {ChannelKey::TxPower}},
    {11, {ChannelKey::VCODev}},
    {12, {ChannelKey::RefOscDev}},
    {14, {ChannelKey::NBVCODev}},
    {15, {ChannelKey::NBRefOscDev}},
    {16, {ChannelKey::TxLevel}},
    {17, {ChannelKey::SynthStep}},
    {18, {ChannelKey::BinMain}},
    {19, {ChannelKey::Modulo}},
    {20, {ChannelKey::RxSynthStep}},
    {21, {ChannelKey::RxBinMain}},
    {22, {ChannelKey::RxModulo}},
    {23, {ChannelKey::p25RepeaterEnable}},
    {24, {ChannelKey::P25TalkgroupID}},
    {25, {ChannelKey::P25TxNetworkAccessCode}},
    {26, {ChannelKey::P25RxNetworkAccessCode}}};

class SingleCell : public Survival, public testing::WithParamInterface<int> {
protected:
    // Bit 1: the bandwidth can be switched; bit 2: narrow band only.
    SingleCell() {
        table->put(StoreMember::BandwidthSwitchable, (GetParam() & 1) != 0);
        table->put(StoreMember::FCCNarrowBandRadio, (GetParam() & 2) != 0);
    }

    // Cells of one column are carried by the block, one row for each value, onto rows that hold something else.
    static constexpr std::int16_t rowsOfABlock = 120;
    static constexpr std::int16_t firstTarget = 130;

    void carryBlock(std::int16_t column) {
        if (filled == 0) {
            return;
        }
        select({1, column}, {filled, column});
        commands.CopySelection();
        grid.setCurrent({firstTarget, column});
        commands.PasteToCells();
        for (std::int16_t row = 1; row <= filled; ++row) {
            ASSERT_EQ(grid.text(firstTarget + row - 1, column), grid.text(row, column)) << "column " << column;
        }
        carried += filled;
        filled = 0;
    }
    // The next row of the block holds that value, unless its cell would be refused.
    void add(std::int16_t column, ChannelKey key, const base::Value& value, const std::vector<ChannelKey>& flags,
             bool flagged) {
        const auto row = static_cast<std::int16_t>(filled + 1);
        fillDistinct(*table, row);
        put(row, key, value);
        for (const auto flag : flags) {
            if (flag != key && model::infoOf(flag).kind == model::KeyKind::Boolean) {
                put(row, flag, flagged);
            }
        }
        render(row);
        const auto text = grid.text(row, column);
        if (!accepts(column, text)) {
            ++refused[text];
            return;
        }
        if (++filled == rowsOfABlock) {
            ASSERT_NO_FATAL_FAILURE(carryBlock(column));
        }
    }
    // Every value of each key of a column, with the column's flag clear and set.
    void walk(std::int16_t column, const std::vector<ChannelKey>& keys) {
        for (std::int16_t row = firstTarget; row < firstTarget + rowsOfABlock; ++row) {
            fillDistinct(*table, row);
        }
        for (const auto key : keys) {
            for (const auto& value : valuesOf(model::infoOf(key))) {
                for (const bool flagged : {false, true}) {
                    ASSERT_NO_FATAL_FAILURE(add(column, key, value, keys, flagged));
                }
            }
        }
        carryBlock(column);
    }

    std::int16_t filled = 0;
    int carried = 0;
    std::map<std::string, int> refused;
};

TEST_P(SingleCell, SurvivesCopyPasteAndRendering) {
    for (const auto& [column, keys] : keysOfColumns) {
        carried = 0;
        ASSERT_NO_FATAL_FAILURE(walk(column, keys));
        // What a fixed bandwidth hides is refused.
        const bool hidden = (GetParam() & 1) == 0 && (column == 14 || column == 15);
        EXPECT_EQ(carried == 0, hidden) << column;
    }
    EXPECT_EQ(boxes(), Boxes{});
    // Shown and yet refused: out of range, or no value.
    EXPECT_TRUE(refused.contains("Invalid"));
    EXPECT_TRUE(refused.contains("5000.000000"));
    EXPECT_TRUE(refused.contains("300.0 Hz"));
    EXPECT_TRUE(refused.contains("256"));
    EXPECT_TRUE(refused.contains("25.625"));
    EXPECT_FALSE(refused.contains("Multiple"));
    EXPECT_FALSE(refused.contains("Disabled"));
}

INSTANTIATE_TEST_SUITE_P(Radios, SingleCell, testing::Values(0, 1, 2, 3));

TEST_F(Survival, OfTheReferenceBiasIsItsInverse) {
    for (const auto& [column, key] :
         {std::pair<std::int16_t, ChannelKey>{10, ChannelKey::RefOscFreq}, {13, ChannelKey::NBRefOscFreq}}) {
        for (int level = 0; level <= 255; ++level) {
            put(source, key, static_cast<std::int16_t>(level));
            show();
            const auto [shown, pasted] = carry(column);
            EXPECT_EQ(shown, std::to_string(255 - level));
            EXPECT_EQ(pasted, std::to_string(level));
            EXPECT_EQ(at(target, key), base::Value{static_cast<std::int16_t>(255 - level)});
        }
    }
}

// Older hardware shows the wide-band key in both columns, and a paste writes each to its own.
TEST_F(Survival, OfTheNarrowBiasOnOlderHardwareNeverShows) {
    table->put(StoreMember::HardwareRevision, 2.8F);
    show();
    const auto before = grid.text(target, 13);
    EXPECT_NE(carry(13).first, before);
    EXPECT_EQ(grid.text(target, 13), before);
}

// What is shown as zeros is carried as none.
TEST_F(Survival, OfAValueBelowTheLastShownDigitIsNone) {
    put(source, ChannelKey::TxFreq, 0.4);
    put(source, ChannelKey::TxCTCSSDCS, false);
    put(source, ChannelKey::TxSub, 0.04F);
    show();
    EXPECT_EQ(carry(1), (std::pair<std::string, std::string>{"0.000000", "X"}));
    EXPECT_EQ(carry(3), (std::pair<std::string, std::string>{"0.0 Hz", "Disabled"}));
}

// A copied empty cell is an empty line, which has no cells.
TEST_F(Survival, OfAnEmptyCellByItselfIsNone) {
    put(source, ChannelKey::P25TxNetworkAccessCode, base::textValue(""));
    show();
    const auto kept = grid.text(target, 25);
    EXPECT_EQ(carry(25), (std::pair<std::string, std::string>{"", kept}));
    select({source, 25}, {source, 26});
    commands.CopySelection();
    grid.setCurrent({target, 25});
    commands.PasteToCells();
    EXPECT_EQ(grid.text(target, 25), "");
    EXPECT_EQ(boxes(), Boxes{});
}

// A step is read and multiplied in single precision: within two millihertz of a whole hertz, but not always on it.
TEST_F(Survival, OfAStepOfAnyWholeHertzIsToAFractionOfAHertz) {
    int shifted = 0;
    for (int hertz = 1; hertz <= 25'500; ++hertz) {
        put(source, ChannelKey::SynthStep, hertz);
        render(source);
        desktop.clipboard = grid.text(source, 17);
        editing::storeCell({.store = *table, .channel = target, .format = {}}, 17, *desktop.clipboard);
        const double stored = base::toDouble(at(target, ChannelKey::SynthStep));
        ASSERT_NEAR(stored, hertz, 0.002) << hertz;
        shifted += stored != hertz ? 1 : 0;
        ASSERT_TRUE(stored == hertz || hertz % 125 != 0) << hertz;
    }
    EXPECT_EQ(shifted, 367);
}

// -- whole rows: every reason why one does not survive ---------------------------------------------------------------

class Rows : public Survival {
protected:
    // A row that survives, from which each test departs.
    Rows() {
        for (const auto channel : {source, target}) {
            fill(*table, channel,
                 {{ChannelKey::TxFreq, 145'500'000},
                  {ChannelKey::RxFreq, 146'500'000},
                  {ChannelKey::ModeBits, 0x81},
                  {ChannelKey::TxCTCSSDCS, false},
                  {ChannelKey::RxCTCSSDCS, true},
                  {ChannelKey::RxDCSIndex, 82},
                  {ChannelKey::RefOscFreq, 0},
                  {ChannelKey::NBRefOscFreq, 0},
                  {ChannelKey::TxLevel, 6},
                  {ChannelKey::p25RepeaterEnable, false},
                  {ChannelKey::P25TransmitMode, true}});
        }
        put(target, ChannelKey::TxPower, 250);
        show();
    }
    void expectRefused(const std::string& error) {
        show();
        carryRow();
        EXPECT_EQ(boxes(), (Boxes{{.text = "Error during pasting data. " + error + ". Unable to continue."}}));
        EXPECT_TRUE(redo.enabled());
        EXPECT_EQ(grid.text(target, 1), "145.500000");
    }
};

// Columns 10 and 13 apart.
[[nodiscard]] std::vector<std::string> cut(const std::string& text) {
    std::vector<std::string> cells(1);
    for (const char each : text) {
        if (each == '\t') {
            cells.emplace_back();
        } else {
            cells.back() += each;
        }
    }
    if (cells.size() == 26) {
        cells[9] = cells[12] = "";
    }
    return cells;
}

TEST_F(Rows, SurviveButForTheInvertedColumns) {
    const auto [copied, pasted] = carryRow();
    EXPECT_EQ(cut(copied).size(), 26U);
    EXPECT_EQ(cut(pasted), cut(copied));
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(grid.text(source, 10), "255");
    EXPECT_EQ(grid.text(target, 10), "0");
    EXPECT_EQ(grid.text(target, 13), "0");
}

// "No" in column 23 takes back what column 5 had set, "Yes" makes a P25 repeater of a mixed-mode channel.
TEST_F(Rows, OfMixedModeBecomeP25Repeaters) {
    put(source, ChannelKey::ModeBits, 0x82);
    put(source, ChannelKey::p25RepeaterEnable, true);
    show();
    ASSERT_EQ(grid.text(source, 5), "Mixed Mode");
    carryRow();
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(grid.text(target, 5), "P25 Repeater");
    EXPECT_EQ(grid.text(target, 23), "Yes");
}

// The wide band is the last word on bit 128 for a P25 repeater until column 23 says "Yes" again.
TEST_F(Rows, OfAWideP25RepeaterBecomeNarrow) {
    put(source, ChannelKey::ModeBits, 0);
    put(source, ChannelKey::p25RepeaterEnable, true);
    put(source, ChannelKey::P25TransmitMode, false);
    show();
    ASSERT_EQ(grid.text(source, 5), "P25 Repeater");
    ASSERT_EQ(grid.text(source, 7), "Wide");
    carryRow();
    EXPECT_EQ(grid.text(target, 7), "Narrow");
    EXPECT_EQ(grid.text(target, 5), "P25 Repeater");
    EXPECT_EQ(boxes(), Boxes{});
}

// "Analogue" is shown for digital transmission in wide band, and stored as analogue.
TEST_F(Rows, OfWideDigitalTransmissionLoseIt) {
    put(source, ChannelKey::ModeBits, 0);
    put(source, ChannelKey::P25TransmitMode, true);
    show();
    carryRow();
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(grid.text(target, 8), "Analogue");
    EXPECT_EQ(at(target, ChannelKey::P25TransmitMode), base::Value{false});
}

TEST_F(Rows, OfAnUnconfiguredChannelStopAtTheSubtone) {
    put(source, ChannelKey::TxFreq, 0);
    put(source, ChannelKey::RxFreq, 0);
    expectRefused("Invalid DCS value (not found in the table) TX Subtone");
}

// Its frequencies alone can be carried: the channel becomes unconfigured as well.
TEST_F(Rows, OfAnUnconfiguredChannelCarryTheirFrequencies) {
    put(source, ChannelKey::TxFreq, 0);
    put(source, ChannelKey::RxFreq, 0);
    show();
    EXPECT_EQ(carryRow(1, 2).second, "X\tX");
    EXPECT_EQ(grid.text(target, 26), "X");
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(Rows, OntoAnUnconfiguredChannelConfigureIt) {
    put(target, ChannelKey::TxFreq, 0);
    put(target, ChannelKey::RxFreq, 0);
    show();
    ASSERT_EQ(grid.text(target, 9), "X");
    const auto [copied, pasted] = carryRow();
    EXPECT_EQ(cut(pasted), cut(copied));
}

TEST_F(Rows, OfAFixedBandwidthStopAtTheMissingLevels) {
    table->put(StoreMember::BandwidthSwitchable, false);
    show();
    ASSERT_EQ(grid.text(source, 7), "N/A");
    expectRefused("Error in validating Pot Value (Type mismatch) Ref Osc Freq NB");
    show();
    const auto [copied, pasted] = carryRow(1, 9);
    EXPECT_EQ(pasted, copied);
    // And yet the hidden bit is gone.
    EXPECT_EQ(base::toBits(at(source, ChannelKey::ModeBits)) & 128, 128);
    carryRow(7, 7);
    EXPECT_EQ(base::toBits(at(target, ChannelKey::ModeBits)) & 128, 0);
}

TEST_F(Rows, WithNotAvailableAreRefusedByAnotherRadio) {
    table->put(StoreMember::BandwidthSwitchable, false);
    show();
    grid.setCurrent({source, 7});
    commands.CopySelection();
    table->put(StoreMember::BandwidthSwitchable, true);
    grid.setCurrent({target, 7});
    commands.PasteToCells();
    EXPECT_EQ(boxes(), (Boxes{{.text = "Error during pasting data. Invalid value for Wide/Narrow band (must be Wide or "
                                       "Narrow) WB/NB. Unable to continue."}}));
}

TEST_F(Rows, WithAStepOfZeroAreRefused) {
    put(source, ChannelKey::SynthStep, 0);
    expectRefused("Invalid Synthesizer Step size value (out of range) TX Synth Step Size");
    put(source, ChannelKey::SynthStep, 12'500);
    put(source, ChannelKey::RxSynthStep, 0);
    expectRefused("Invalid Synthesizer Step size value (out of range) RX Synth Step Size");
}

TEST_F(Rows, WithAnInvalidSubtoneAreRefused) {
    put(source, ChannelKey::TxCTCSSDCS, true);
    put(source, ChannelKey::TxDCSIndex, 83);
    show();
    ASSERT_EQ(grid.text(source, 3), "Invalid");
    expectRefused("Invalid DCS value (not found in the table) TX Subtone");
}

TEST_F(Rows, WithAValueThatIsOutOfRangeAreRefused) {
    put(source, ChannelKey::TxLevel, 7);
    expectRefused("Invalid subtone level value (out of range) Subtone Level");
    put(source, ChannelKey::TxLevel, 6);
    put(source, ChannelKey::RxFreq, 5e9);
    expectRefused("Invalid channel frequency value (out of range) RX Freq");
}

// An inverted bias outside of its range is negative.
TEST_F(Rows, WithABiasBeyondItsRangeAreRefused) {
    put(source, ChannelKey::RefOscFreq, 256);
    expectRefused("Invalid pot value (out of range) Ref Osc Freq WB");
}

TEST_F(Rows, OfP25ModesAreRefusedWithoutABoard) {
    put(source, ChannelKey::p25RepeaterEnable, true);
    table->put(StoreMember::P25BoardFitted, false);
    expectRefused("Invalid value, there is no P25 board fitted for this mode RF Mode");
}

// Trimmed on their way into the table, so that a code which was stored with blanks comes back without.
TEST_F(Rows, LoseTheBlanksAroundTheirCodes) {
    put(source, ChannelKey::P25TxNetworkAccessCode, base::textValue("1A2 "));
    show();
    carryRow();
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(grid.text(target, 25), "1A2");
}

TEST_F(Rows, WithAShortTalkgroupArePadded) {
    put(source, ChannelKey::P25TalkgroupID, base::textValue("12"));
    put(source, ChannelKey::P25TxNetworkAccessCode, base::textValue("12"));
    show();
    carryRow();
    EXPECT_EQ(grid.text(target, 24), "0012");
    EXPECT_EQ(grid.text(target, 25), "12");
}

}  // namespace
}  // namespace telvar::tests
