// What the check of a whole table finds: worked settings on both sides of every bound, the exact reports by number of
// faults, and what becomes of a store that fails at any of its calls.
#include "synth/table_check.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "support/answering_store.h"
#include "support/failing_store.h"
#include "support/recording_store.h"
#include "support/table_builder.h"

namespace telvar::synth {

inline void PrintTo(const Finding& finding, std::ostream* stream) {
    *stream << '"' << finding.text << "\" titled \"" << finding.title.value_or("(nothing)") << '"';
}

}  // namespace telvar::synth

namespace telvar::tests {
namespace {

using base::Value;
using model::ChannelKey;
using model::StoreMember;
using synth::Finding;
using Findings = std::vector<Finding>;

constexpr std::int32_t good = 450'000'000;
constexpr std::int32_t offGrid = good + 1;     // no multiple of any step
constexpr std::int32_t overflowingStep = 500;  // with modulo 5: reference divider 5120
constexpr std::int32_t overflowingModulo = 0;  // selector of 5
constexpr const char* hint = "Hint: Correct frequency or alter modulus or step size.\r\n";

[[nodiscard]] std::string divideReport(const std::string& channels) {
    return "Reference frequency divide error or main frequency divide error in channels " + channels + ".\r" + hint;
}
[[nodiscard]] std::string overflowReport(const std::string& entries) {
    return "NR overflows in channel " + entries + ".\r\nHint: Increase the step size.";
}
[[nodiscard]] std::string faultReport(int channel, const std::string& description) {
    return "Error in channel " + std::to_string(channel) + ".  Please check information entered.\r\n" + description;
}
[[nodiscard]] Finding chipWarning(const std::string& entries) {
    return {.text = "Phillips SA 7025 PLL chip detected, synthesizer step size 5kHZ or larger is recommended to "
                    "maintain RF performance in channel " +
                    entries,
            .title = std::nullopt};
}
const Finding noDcs{.text = "DCS option not present.  Please remove DCS subtones from channel/s.", .title = "Telvar"};

[[nodiscard]] Finding titled(const std::string& text) { return {.text = text, .title = "Telvar"}; }

// "1, 2, 3, "
[[nodiscard]] std::string counted(int last, const std::string& mark = "") {
    std::string text;
    for (int channel = 1; channel <= last; ++channel) {
        text += std::to_string(channel) + mark + ", ";
    }
    return text;
}
[[nodiscard]] std::string withoutLastComma(std::string text) { return text.substr(0, text.size() - 2); }

class TableCheck : public testing::Test {
protected:
    void SetUp() override { store.put(StoreMember::MessageTitle, base::textValue("Telvar")); }

    void set(std::int16_t channel, KeyValues values) { fill(store, channel, values); }
    void divideError(std::int16_t channel) { set(channel, {{ChannelKey::TxFreq, offGrid}}); }
    void overflow(std::int16_t channel, std::int32_t frequency = good) {
        set(channel, {{ChannelKey::TxFreq, frequency},
                      {ChannelKey::SynthStep, overflowingStep},
                      {ChannelKey::Modulo, overflowingModulo}});
    }
    [[nodiscard]] synth::TableVerdict check() { return synth::checkFrequencies(store); }

    void expectGood() {
        EXPECT_TRUE(check().good);
        EXPECT_EQ(check().findings, Findings{});
    }
    void expectRefused(const Findings& findings) {
        const auto verdict = check();
        EXPECT_FALSE(verdict.good);
        EXPECT_EQ(verdict.findings, findings);
    }
    void expectRefused(const std::string& report) { expectRefused(Findings{titled(report)}); }

    model::MemoryDataStore store;
};

TEST_F(TableCheck, ATableOfEmptyChannelsIsGood) { expectGood(); }

TEST_F(TableCheck, EveryChannelMayBeConfigured) {
    for (std::int16_t channel = 1; channel <= model::channelCount; ++channel) {
        set(channel, {{ChannelKey::TxFreq, good}, {ChannelKey::RxFreq, good}});
    }
    expectGood();
}

// -- divide errors ---------------------------------------------------------------------------------------------------

TEST_F(TableCheck, OneChannelOffItsGridInEitherDirectionOrBothIsOneEntry) {
    set(7, {{ChannelKey::TxFreq, offGrid}});
    expectRefused(divideReport("7"));
    set(7, {{ChannelKey::TxFreq, 0}, {ChannelKey::RxFreq, offGrid}});
    expectRefused(divideReport("7"));
    set(7, {{ChannelKey::TxFreq, offGrid}});
    expectRefused(divideReport("7"));
}

TEST_F(TableCheck, EachDirectionIsCheckedByItsOwnFrequency) {
    set(7, {{ChannelKey::TxFreq, good}, {ChannelKey::RxFreq, offGrid}});
    expectRefused(divideReport("7"));
    set(7, {{ChannelKey::TxFreq, offGrid}, {ChannelKey::RxFreq, good}});
    expectRefused(divideReport("7"));
}

TEST_F(TableCheck, ADirectionWithoutFrequencyIsNotChecked) {
    set(7, {{ChannelKey::TxFreq, good}, {ChannelKey::RxSynthStep, 0}});
    expectGood();
    set(7, {{ChannelKey::TxFreq, 0}, {ChannelKey::RxFreq, good}, {ChannelKey::RxSynthStep, 12'500}});
    set(7, {{ChannelKey::SynthStep, 0}});
    expectGood();
}

TEST_F(TableCheck, TwoFaultyChannelsAreSeparatedByAComma) {
    divideError(3);
    divideError(255);
    expectRefused(divideReport("3, 255"));
}

TEST_F(TableCheck, FifteenFaultyChannelsAreListedWhole) {
    for (std::int16_t channel = 1; channel <= 15; ++channel) {
        divideError(channel);
    }
    expectRefused(divideReport(withoutLastComma(counted(15))));
}

class ManyFaults : public TableCheck, public testing::WithParamInterface<std::int16_t> {};

TEST_P(ManyFaults, AreListedUpToTheSixteenthAndEndInDots) {
    for (std::int16_t channel = 1; channel <= GetParam(); ++channel) {
        divideError(channel);
    }
    expectRefused(divideReport(counted(16) + ".."));
}

TEST_P(ManyFaults, OverflowsAreAllListedAndEndInDots) {
    for (std::int16_t channel = 1; channel <= GetParam(); ++channel) {
        overflow(channel);
    }
    expectRefused(overflowReport(withoutLastComma(counted(GetParam(), " TX")) + ".."));
}

INSTANTIATE_TEST_SUITE_P(All, ManyFaults, testing::Values(16, 17, 255));

TEST_F(TableCheck, TheReferenceMustBeAMultipleOfTheComparisonFrequency) {
    store.put(StoreMember::TxReferenceFrequency, std::int32_t{12'800'001});
    set(7, {{ChannelKey::RxFreq, good}});
    expectGood();
    set(7, {{ChannelKey::TxFreq, good}});
    expectRefused(divideReport("7"));
}

TEST_F(TableCheck, AnyModuloSelectorButOneIsFive) {
    // 12.8 MHz is 500 times 5 times 5120 Hz, and 312.5 times 8 times as much.
    set(7, {{ChannelKey::TxFreq, 460'800'000}, {ChannelKey::SynthStep, 5120}, {ChannelKey::Modulo, 0}});
    expectGood();
    set(7, {{ChannelKey::Modulo, 2}});
    expectGood();
    set(7, {{ChannelKey::Modulo, 1}});
    expectRefused(divideReport("7"));
}

TEST_F(TableCheck, EachDirectionHasStepAndModuloOfItsOwn) {
    // The VCO on the raster of 5120 Hz, which fits the reference with modulo 5 alone.
    constexpr std::int32_t vco = 460'800'000;
    constexpr std::int32_t offset = 21'400'000;
    store.put(StoreMember::LocalOscOffset, offset);
    set(7, {{ChannelKey::RxFreq, vco - offset},
            {ChannelKey::RxSynthStep, 5120},
            {ChannelKey::RxModulo, 0},
            {ChannelKey::SynthStep, 12'500},
            {ChannelKey::Modulo, 1}});
    expectGood();
    set(7, {{ChannelKey::RxModulo, 1}, {ChannelKey::Modulo, 0}});
    expectRefused(divideReport("7"));
    set(7, {{ChannelKey::RxFreq, 0},
            {ChannelKey::TxFreq, vco},
            {ChannelKey::SynthStep, 5120},
            {ChannelKey::RxSynthStep, 12'500}});
    expectGood();
    set(7, {{ChannelKey::RxModulo, 0}, {ChannelKey::Modulo, 1}});
    expectRefused(divideReport("7"));
}

// -- overflows -------------------------------------------------------------------------------------------------------

TEST_F(TableCheck, AnOverflowNamesItsDirectionTheReceiveSideFirst) {
    overflow(4);
    set(4, {{ChannelKey::RxFreq, good},
            {ChannelKey::RxSynthStep, overflowingStep},
            {ChannelKey::RxModulo, overflowingModulo}});
    overflow(9);
    expectRefused(overflowReport("4 RX, 4 TX, 9 TX"));
}

TEST_F(TableCheck, TheReferenceDividerHoldsTwelveBits) {
    set(7, {{ChannelKey::TxFreq, good}, {ChannelKey::SynthStep, 625}, {ChannelKey::Modulo, 0}});
    store.put(StoreMember::TxReferenceFrequency, std::int32_t{4095 * 3125});
    expectGood();
    store.put(StoreMember::TxReferenceFrequency, std::int32_t{4096 * 3125});
    expectRefused(overflowReport("7 TX"));
}

TEST_F(TableCheck, TheReferenceDividerIsRoundedHalfToEven) {
    set(7, {{ChannelKey::TxFreq, good}, {ChannelKey::SynthStep, 1250}, {ChannelKey::Modulo, 0}});
    store.setReferenceDividerScaling(std::int16_t{-1});
    store.put(StoreMember::TxReferenceFrequency, std::int32_t{6250 * 2047});
    expectGood();  // 4094
    store.setReferenceDividerScaling(std::int16_t{1});
    store.put(StoreMember::TxReferenceFrequency, std::int32_t{6250 * 8191});
    expectRefused(overflowReport("7 TX"));  // 4095.5 becomes 4096
    store.put(StoreMember::TxReferenceFrequency, std::int32_t{6250 * 8190});
    expectGood();  // 4095
}

struct Scaling {
    std::int16_t exponent;
    std::int32_t largestFitting;  // reference, in units of the comparison frequency
};
class ReferenceScaling : public TableCheck, public testing::WithParamInterface<Scaling> {};

// The divider is the reference over the comparison frequency times two to the power of `sm`.
TEST_P(ReferenceScaling, HalvesTheDividerForEachStepAndDoublesItBelowZero) {
    constexpr std::int32_t comparison = 5 * 1000;
    set(7, {{ChannelKey::TxFreq, good}, {ChannelKey::SynthStep, 1000}, {ChannelKey::Modulo, 0}});
    store.setReferenceDividerScaling(GetParam().exponent);
    store.put(StoreMember::TxReferenceFrequency, GetParam().largestFitting * comparison);
    expectGood();
    store.put(StoreMember::TxReferenceFrequency, (GetParam().largestFitting + 1) * comparison);
    expectRefused(overflowReport("7 TX"));
}

// Half of 4095.5 and the like is rounded to the even neighbour, which is one too many.
INSTANTIATE_TEST_SUITE_P(All, ReferenceScaling,
                         testing::Values(Scaling{-3, 511}, Scaling{-2, 1023}, Scaling{-1, 2047}, Scaling{0, 4095},
                                         Scaling{1, 8190}, Scaling{2, 16381}, Scaling{3, 32763}),
                         [](const auto& scaling) {
                             const auto exponent = scaling.param.exponent;
                             return (exponent < 0 ? "Minus" : "") + std::to_string(std::abs(exponent));
                         });

TEST_F(TableCheck, AScalingWhosePowerIsBeyondThirtyTwoBitsIsAFault) {
    set(7, {{ChannelKey::RxFreq, good}});
    for (const std::int32_t exponent : {0, 1, 30}) {
        store.setReferenceDividerScaling(exponent);
        expectGood();
    }
    for (const std::int32_t exponent : {31, 32, 62, 63, 64, 1023, 1024, 32'767, 2'147'483'647}) {
        store.setReferenceDividerScaling(exponent);
        expectRefused(faultReport(7, "Overflow"));
    }
    // A power so small that the divider has no room in sixteen bits.
    for (const std::int32_t exponent : {-8, -32, -1100, -2'147'483'647}) {
        store.setReferenceDividerScaling(exponent);
        expectRefused(faultReport(7, "Overflow"));
    }
}

TEST_F(TableCheck, AReferenceDividerBeyondSixteenBitsIsAFault) {
    set(7, {{ChannelKey::TxFreq, 4'000'000}, {ChannelKey::SynthStep, 50}, {ChannelKey::Modulo, 0}});
    expectRefused(faultReport(7, "Overflow"));
}

// -- both kinds ------------------------------------------------------------------------------------------------------

TEST_F(TableCheck, DivideErrorsAreReportedBeforeOverflows) {
    overflow(2);
    divideError(5);
    expectRefused(divideReport("5") + overflowReport("2 TX"));
}

TEST_F(TableCheck, AChannelWithBothFaultsCountsTwice) {
    for (std::int16_t channel = 1; channel <= 7; ++channel) {
        overflow(channel, offGrid);
    }
    expectRefused(divideReport(withoutLastComma(counted(7))) + overflowReport(withoutLastComma(counted(7, " TX"))));
    overflow(8, offGrid);
    expectRefused(divideReport(counted(8) + "..") + overflowReport(withoutLastComma(counted(8, " TX")) + ".."));
    // No room is left for a divide entry; overflows have no limit.
    overflow(9, offGrid);
    expectRefused(divideReport(counted(8) + "..") + overflowReport(withoutLastComma(counted(9, " TX")) + ".."));
}

TEST_F(TableCheck, ADivideErrorInBothDirectionsCountsOnce) {
    for (std::int16_t channel = 1; channel <= 15; ++channel) {
        set(channel, {{ChannelKey::TxFreq, offGrid}, {ChannelKey::RxFreq, offGrid}});
    }
    expectRefused(divideReport(withoutLastComma(counted(15))));
}

TEST_F(TableCheck, AnOverflowInBothDirectionsCountsOnce) {
    for (std::int16_t channel = 1; channel <= 15; ++channel) {
        overflow(channel);
        set(channel, {{ChannelKey::RxFreq, good},
                      {ChannelKey::RxSynthStep, overflowingStep},
                      {ChannelKey::RxModulo, overflowingModulo}});
    }
    std::string entries;
    for (int channel = 1; channel <= 15; ++channel) {
        const auto text = std::to_string(channel);
        entries += text + " RX, " + text + " TX, ";
    }
    expectRefused(overflowReport(withoutLastComma(entries)));
}

TEST_F(TableCheck, TheDivideEntryLooksAtTheCountBeforeItsChannel) {
    for (std::int16_t channel = 1; channel <= 15; ++channel) {
        divideError(channel);
    }
    overflow(16, offGrid);
    expectRefused(divideReport(counted(16) + "..") + overflowReport("16 TX.."));
}

// -- the main counter ------------------------------------------------------------------------------------------------

struct MainCounter {
    std::int32_t main;
    bool receives;
    bool transmits;
};

class MainCounterBounds : public TableCheck, public testing::WithParamInterface<MainCounter> {
protected:
    // 5 kHz comparison frequency; the other two counters are 0.
    [[nodiscard]] static std::int32_t frequencyFor(std::int32_t main) { return (64 * (main + 3) + 8) * 5000; }
    void judge(bool isGood) { isGood ? expectGood() : expectRefused(divideReport("7")); }
};

TEST_P(MainCounterBounds, DifferByDirection) {
    const auto vco = frequencyFor(GetParam().main);
    set(7, {{ChannelKey::TxFreq, vco}, {ChannelKey::SynthStep, 1000}, {ChannelKey::Modulo, 0}});
    judge(GetParam().transmits);
    store.put(StoreMember::LocalOscOffset, std::int32_t{-100'000});
    set(7, {{ChannelKey::TxFreq, 0},
            {ChannelKey::RxFreq, vco + 100'000},
            {ChannelKey::RxSynthStep, 1000},
            {ChannelKey::RxModulo, 0}});
    judge(GetParam().receives);
}

INSTANTIATE_TEST_SUITE_P(All, MainCounterBounds,
                         testing::Values(MainCounter{-1, false, false}, MainCounter{0, false, true},
                                         MainCounter{13, false, true}, MainCounter{14, true, true},
                                         MainCounter{4095, true, true}, MainCounter{4096, false, false}),
                         [](const auto& tested) {
                             const auto main = tested.param.main;
                             return main < 0 ? "minus" + std::to_string(-main) : std::to_string(main);
                         });

TEST_F(TableCheck, LessThanHalfAHertzIsNoFrequency) {
    store.put(StoreMember::DCSOptionFitted, false);
    for (const double nothing : {0.4, -0.4, 0.5, -0.5}) {
        set(7, {{ChannelKey::TxFreq, nothing},
                {ChannelKey::RxFreq, nothing},
                {ChannelKey::SynthStep, 0},
                {ChannelKey::RxSynthStep, 0},
                {ChannelKey::TxCTCSSDCS, true}});
        expectGood();
    }
    for (const double something : {0.6, -0.6}) {
        set(7, {{ChannelKey::TxFreq, something}});
        expectRefused(faultReport(7, "Division by zero"));
    }
}

TEST_F(TableCheck, FrequenciesAreTakenAsWholeHertz) {
    // 16.025 MHz as MHz times a million lies just below the whole number.
    set(7, {{ChannelKey::TxFreq, 16.025 * 1e6}, {ChannelKey::SynthStep, 5000}});
    expectGood();
}

// -- the older chip --------------------------------------------------------------------------------------------------

TEST_F(TableCheck, SmallStepsOnTheOlderChipAreAWarningAlone) {
    store.put(StoreMember::TxSynthChipInfo, base::textValue("N.A."));
    set(3, {{ChannelKey::TxFreq, good}, {ChannelKey::SynthStep, 2500}});
    set(4, {{ChannelKey::TxFreq, good}, {ChannelKey::SynthStep, 5000}});
    set(5, {{ChannelKey::RxFreq, good}, {ChannelKey::RxSynthStep, 2500}});
    auto verdict = check();
    EXPECT_TRUE(verdict.good);
    EXPECT_EQ(verdict.findings, (Findings{chipWarning("3 (TX)")}));
    store.put(StoreMember::RxSynthChipInfo, base::textValue("N.A."));
    set(3, {{ChannelKey::RxFreq, good}, {ChannelKey::RxSynthStep, 4000}});
    verdict = check();
    EXPECT_TRUE(verdict.good);
    EXPECT_EQ(verdict.findings, (Findings{chipWarning("3 (RX), 3 (TX), 5 (RX)")}));
}

TEST_F(TableCheck, OnlyTheExactChipTextMeansTheOlderChip) {
    set(3, {{ChannelKey::TxFreq, good}, {ChannelKey::SynthStep, 2500}});
    for (const char* text : {"n.a.", "N.A", " N.A.", "Fitted", ""}) {
        store.put(StoreMember::TxSynthChipInfo, base::textValue(text));
        expectGood();
    }
}

TEST_F(TableCheck, TheChipWarningComesBeforeTheReport) {
    store.put(StoreMember::TxSynthChipInfo, base::textValue("N.A."));
    set(3, {{ChannelKey::TxFreq, good}, {ChannelKey::SynthStep, 2500}});
    divideError(4);
    expectRefused({chipWarning("3 (TX)"), titled(divideReport("4"))});
}

TEST_F(TableCheck, TheChipWarningListsMoreThanSixteenChannels) {
    store.put(StoreMember::TxSynthChipInfo, base::textValue("N.A."));
    for (std::int16_t channel = 1; channel <= 20; ++channel) {
        set(channel, {{ChannelKey::TxFreq, good}, {ChannelKey::SynthStep, 2500}});
    }
    EXPECT_EQ(check().findings, (Findings{chipWarning(withoutLastComma(counted(20, " (TX)")))}));
}

// -- DCS -------------------------------------------------------------------------------------------------------------

TEST_F(TableCheck, DcsOnEitherSideNeedsTheOption) {
    for (const auto key : {ChannelKey::TxCTCSSDCS, ChannelKey::RxCTCSSDCS}) {
        set(9, {{ChannelKey::TxFreq, good}, {key, true}});
        store.put(StoreMember::DCSOptionFitted, true);
        expectGood();
        store.put(StoreMember::DCSOptionFitted, false);
        expectRefused({noDcs});
        set(9, {{key, false}});
        expectGood();
    }
}

TEST_F(TableCheck, DcsOfAnUnconfiguredChannelIsNoUse) {
    store.put(StoreMember::DCSOptionFitted, false);
    set(9, {{ChannelKey::TxCTCSSDCS, true}});
    expectGood();
}

TEST_F(TableCheck, DcsNeedsARevisionOfTwoPointFourInSinglePrecision) {
    set(9, {{ChannelKey::RxFreq, good}, {ChannelKey::RxCTCSSDCS, true}});
    AnsweringStore radio(store);
    for (const Value& revision : {Value{2.3F}, Value{2.3}, Value{2.3999}}) {
        radio.answer(StoreMember::HardwareRevision, revision);
        EXPECT_FALSE(synth::checkFrequencies(radio).good);
        EXPECT_EQ(synth::checkFrequencies(radio).findings, (Findings{noDcs}));
    }
    // The last one lies below 2.4 as a double, and rounds to the single 2.4.
    for (const Value& revision : {Value{2.4F}, Value{2.4}, Value{std::int16_t{3}}, Value{2.39999999}}) {
        radio.answer(StoreMember::HardwareRevision, revision);
        EXPECT_TRUE(synth::checkFrequencies(radio).good);
    }
}

TEST_F(TableCheck, FaultsHideTheWantOfDcs) {
    store.put(StoreMember::DCSOptionFitted, false);
    set(9, {{ChannelKey::TxFreq, offGrid}, {ChannelKey::TxCTCSSDCS, true}});
    expectRefused(divideReport("9"));
}

TEST_F(TableCheck, TheChipWarningComesBeforeTheWantOfDcs) {
    store.put(StoreMember::DCSOptionFitted, false);
    store.put(StoreMember::TxSynthChipInfo, base::textValue("N.A."));
    set(9, {{ChannelKey::TxFreq, good}, {ChannelKey::SynthStep, 2500}, {ChannelKey::TxCTCSSDCS, true}});
    expectRefused({chipWarning("9 (TX)"), noDcs});
}

TEST_F(TableCheck, DcsOfAnyChannelCountsNotOnlyTheLastOnes) {
    store.put(StoreMember::DCSOptionFitted, false);
    for (const auto user : std::vector<std::int16_t>{1, 2, 100, 254}) {
        for (std::int16_t channel = 1; channel <= model::channelCount; ++channel) {
            set(channel, {{ChannelKey::TxFreq, good}, {ChannelKey::TxCTCSSDCS, channel == user}});
        }
        expectRefused({noDcs});
    }
}

// -- faults ----------------------------------------------------------------------------------------------------------

TEST_F(TableCheck, AZeroStepIsAFaultAndEndsTheCheck) {
    divideError(6);
    set(7, {{ChannelKey::TxFreq, good}, {ChannelKey::SynthStep, 0}});
    divideError(8);
    expectRefused(faultReport(7, "Division by zero"));
}

TEST_F(TableCheck, TheChipWarningComesOnlyAfterTheLastChannelSoThatAFaultLeavesNoneBehind) {
    store.put(StoreMember::TxSynthChipInfo, base::textValue("N.A."));
    set(3, {{ChannelKey::TxFreq, good}, {ChannelKey::SynthStep, 2500}});
    set(4, {{ChannelKey::TxFreq, good}, {ChannelKey::SynthStep, 0}});
    expectRefused(faultReport(4, "Division by zero"));
}

TEST_F(TableCheck, TheChipWarningIsKeptWhereALaterReadFails) {
    store.put(StoreMember::TxSynthChipInfo, base::textValue("N.A."));
    set(3, {{ChannelKey::TxFreq, good}, {ChannelKey::SynthStep, 2500}, {ChannelKey::TxCTCSSDCS, true}});
    for (const auto member : {StoreMember::DCSOptionFitted, StoreMember::HardwareRevision}) {
        AnsweringStore radio(store);
        radio.answer(member, base::Unusable{});
        const auto verdict = synth::checkFrequencies(radio);
        EXPECT_FALSE(verdict.good);
        EXPECT_EQ(verdict.findings, (Findings{chipWarning("3 (TX)"), titled(faultReport(255, "Type mismatch"))}));
    }
}

TEST_F(TableCheck, ArithmeticBeyondThirtyTwoBitsIsAFault) {
    set(7, {{ChannelKey::RxFreq, 2'147'483'647}});
    expectRefused(faultReport(7, "Overflow"));
    set(7, {{ChannelKey::RxFreq, 5e9}});
    expectRefused(faultReport(7, "Overflow"));
    set(7, {{ChannelKey::RxFreq, 0}, {ChannelKey::TxFreq, good}, {ChannelKey::SynthStep, 2'000'000'000}});
    expectRefused(faultReport(7, "Overflow"));
}

TEST_F(TableCheck, AFrequencyThatIsNoNumberCountsAsZero) {
    AnsweringStore radio(store);
    set(7, {{ChannelKey::TxFreq, offGrid}});
    radio.answer(ChannelKey::TxFreq, base::Unusable{});
    EXPECT_TRUE(synth::checkFrequencies(radio).good);
}

// A table with every kind of read in it; its calls by name, in order.
class FailedReads : public TableCheck {
protected:
    FailedReads() {
        set(3, {{ChannelKey::TxFreq, good}, {ChannelKey::RxFreq, good}});
        set(200, {{ChannelKey::TxFreq, good}, {ChannelKey::RxFreq, good}, {ChannelKey::TxCTCSSDCS, true}});
    }
    [[nodiscard]] std::vector<std::string> calls() {
        RecordingStore recording(store);
        EXPECT_TRUE(synth::checkFrequencies(recording).good);
        return recording.calls();
    }
};

TEST_F(FailedReads, OfAFrequencyAreForgivenAndOfAnythingElseNameTheChannel) {
    const auto names = calls();
    ASSERT_GT(names.size(), 2U * model::channelCount + 20);
    FailingStore failing(store);
    int channel = 0;
    for (std::size_t at = 0; at < names.size(); ++at) {
        const std::string& name = names[at];
        if (name.starts_with("ChannelTable(")) {
            channel = std::stoi(name.substr(13)) + 1;
        }
        const bool forgiven = name.ends_with(".TxFreq") || name.ends_with(".RxFreq");
        failing.failAt(static_cast<int>(at) + 1);
        const auto verdict = synth::checkFrequencies(failing);
        EXPECT_EQ(verdict.good, forgiven) << name;
        EXPECT_EQ(verdict.findings,
                  forgiven ? Findings{} : Findings{titled(faultReport(channel, FailingStore::description))})
            << name;
        if (channel == model::channelCount && !forgiven) {
            EXPECT_TRUE(name == "DCSOptionFitted" || name == "HardwareRevision") << name;
        }
    }
    EXPECT_EQ(names.back(), "HardwareRevision");
}

TEST_F(FailedReads, BothSubtoneFlagsOfEveryChannelInUseAreRead) {
    set(5, {{ChannelKey::TxFreq, good}, {ChannelKey::TxCTCSSDCS, true}});
    set(6, {{ChannelKey::TxFreq, good}, {ChannelKey::TxCTCSSDCS, true}});
    int reads = 0;
    for (const auto& name : calls()) {
        reads += name.ends_with("CTCSSDCS") ? 1 : 0;
    }
    EXPECT_EQ(reads, 2 * 4);
}

TEST_F(FailedReads, OfTheTitleLeaveTheMessage) {
    FailingStore failing(store);
    failing.failAt(static_cast<int>(calls().size()), FailureSpan::FromThereOn);
    EXPECT_EQ(synth::checkFrequencies(failing).findings,
              (Findings{{.text = faultReport(255, FailingStore::description), .title = std::nullopt}}));
}

TEST_F(FailedReads, OfEverythingFindNothing) {
    FailingStore failing(store);
    failing.failAt(1, FailureSpan::FromThereOn);
    EXPECT_TRUE(synth::checkFrequencies(failing).good);
}

// -- scanned channels ------------------------------------------------------------------------------------------------

class ScanCount : public TableCheck {
protected:
    void scan(int channels, ChannelKey frequency = ChannelKey::TxFreq) {
        for (std::int16_t channel = 1; channel <= channels; ++channel) {
            set(channel, {{ChannelKey::scan, true}, {frequency, good}});
        }
    }
    [[nodiscard]] std::string count() { return synth::checkScanCount(store); }
};

constexpr const char* tooMany = "Total number of channel scan must not exceed 40.";

TEST_F(ScanCount, FortyScannedChannelsAreAllowed) {
    EXPECT_EQ(count(), "");
    scan(40);
    EXPECT_EQ(count(), "");
    scan(41);
    EXPECT_EQ(count(), tooMany);
}

TEST_F(ScanCount, AReceiveFrequencyIsEnough) {
    scan(41, ChannelKey::RxFreq);
    EXPECT_EQ(count(), tooMany);
}

TEST_F(ScanCount, ChannelsWithoutFrequencyOrWithoutTheFlagDoNotCount) {
    scan(41);
    set(12, {{ChannelKey::TxFreq, 0}});
    EXPECT_EQ(count(), "");
    set(12, {{ChannelKey::TxFreq, good}, {ChannelKey::scan, false}});
    EXPECT_EQ(count(), "");
    set(255, {{ChannelKey::TxFreq, good}, {ChannelKey::scan, true}});
    EXPECT_EQ(count(), tooMany);
}

TEST_F(ScanCount, LessThanHalfAHertzIsNoFrequency) {
    scan(41);
    set(12, {{ChannelKey::TxFreq, 0.4}, {ChannelKey::RxFreq, 0.4}});
    EXPECT_EQ(count(), "");
    set(12, {{ChannelKey::RxFreq, 0.6}});
    EXPECT_EQ(count(), tooMany);
}

TEST_F(ScanCount, AnyFailedReadIsTold) {
    scan(2, ChannelKey::RxFreq);
    FailingStore failing(store);
    EXPECT_EQ(synth::checkScanCount(failing), "");
    const int calls = failing.calls();
    EXPECT_GE(calls, model::channelCount + 4);
    for (int call = 1; call <= calls; ++call) {
        failing.failAt(call);
        EXPECT_EQ(synth::checkScanCount(failing), "Error in calculating Total number of channel scan.") << call;
    }
}

}  // namespace
}  // namespace telvar::tests
