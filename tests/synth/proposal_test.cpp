// Which candidate is proposed: worked frequencies, the order of the list, and every pair that was passed over.
#include "synth/proposal.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <ostream>
#include <random>
#include <string>
#include <vector>

#include "synth/clsPLLSetting.h"

namespace telvar::synth {

inline void PrintTo(const Proposal& proposal, std::ostream* stream) {
    *stream << proposal.step << " Hz, modulo " << proposal.modulo;
}

}  // namespace telvar::synth

namespace telvar::tests {
namespace {

using synth::Proposal;
using synth::proposeSetting;

constexpr std::int32_t reference = 12'800'000;

struct Asked {
    const char* name;
    std::int32_t vco;
    std::int32_t reference;
    const char* currentStep;
    std::optional<Proposal> proposed;
};
class Proposing : public testing::TestWithParam<Asked> {};

TEST_P(Proposing, TakesTheFirstCandidateThatFits) {
    EXPECT_EQ(proposeSetting(GetParam().vco, GetParam().reference, GetParam().currentStep), GetParam().proposed);
}

INSTANTIATE_TEST_SUITE_P(
    Worked, Proposing,
    testing::Values(
        // Every candidate of 8 and 5 times the step divides 12.8 MHz, but for 3250 and 6250 times 8 and 5... the
        // arithmetic below is by hand.
        Asked{"FirstOfAll", 450'000'000, reference, "", Proposal{12500, 8}},
        Asked{"WithAnyText", 450'000'000, reference, "2.5", Proposal{12500, 8}},
        // 450.00625 MHz is on the 6.25 kHz raster: 50 kHz divides 12.8 MHz.
        Asked{"HalfRaster", 450'006'250, reference, "", Proposal{6250, 8}},
        // 450.005 MHz: 40 kHz divides 12.8 MHz.
        Asked{"FiveKilohertz", 450'005'000, reference, "", Proposal{5000, 8}},
        // 450.0025 MHz is on the 2.5 kHz raster and on no coarser one of the list; 1 kHz does not hold it.
        Asked{"QuarterKept", 450'002'500, reference, "2.5", Proposal{2500, 8}},
        Asked{"QuarterNotTried", 450'002'500, reference, "2.50", std::nullopt},
        Asked{"QuarterNotTriedEither", 450'002'500, reference, "", std::nullopt},
        Asked{"OneKilohertz", 450'001'000, reference, "", Proposal{1000, 8}},
        Asked{"OneKilohertzWithQuarter", 450'001'000, reference, "2.5", Proposal{1000, 8}},
        // 26 kHz divides 13 MHz, 40 kHz does; 3.25 kHz comes after 5 kHz and before 2.5 kHz.
        Asked{"ThreeAndAQuarter", 449'998'250, 13'000'000, "", Proposal{3250, 8}},
        // 25 kHz times 8 does not divide 12.625 MHz but times 5 does; so does no smaller candidate earlier.
        Asked{"ModuloFive", 450'000'000, 12'562'500, "", Proposal{12500, 5}},
        Asked{"OffEveryRaster", 450'000'001, reference, "", std::nullopt},
        Asked{"Zero", 0, reference, "", std::nullopt}, Asked{"Negative", -450'000'000, reference, "", std::nullopt},
        Asked{"NoReference", 450'000'000, 0, "", Proposal{12500, 8}},
        Asked{"Largest", std::numeric_limits<std::int32_t>::max(), reference, "", std::nullopt}),
    [](const auto& asked) { return std::string(asked.param.name); });

// One frequency, and the reference alone decides: each step is found with either modulo, and the eight before the five.
TEST(ProposedSetting, DependsOnTheReference) {
    constexpr std::int32_t vco = 451'000'000;
    EXPECT_EQ(proposeSetting(vco, 12'800'000, ""), (Proposal{12'500, 8}));
    EXPECT_EQ(proposeSetting(vco, 12'562'500, ""), (Proposal{12'500, 5}));
    EXPECT_EQ(proposeSetting(vco, 12'050'000, ""), (Proposal{6'250, 8}));
    EXPECT_EQ(proposeSetting(vco, 12'531'250, ""), (Proposal{6'250, 5}));
    EXPECT_EQ(proposeSetting(vco, 12'840'000, ""), (Proposal{5'000, 8}));
    EXPECT_EQ(proposeSetting(vco, 12'825'000, ""), (Proposal{5'000, 5}));
    EXPECT_EQ(proposeSetting(vco, 12'008'000, ""), (Proposal{1'000, 8}));
    EXPECT_EQ(proposeSetting(vco, 12'005'000, ""), (Proposal{1'000, 5}));
    EXPECT_EQ(proposeSetting(vco, 12'800'001, ""), std::nullopt);
}

TEST(ProposedSetting, FindsTheOddStepsWithEitherModuloToo) {
    EXPECT_EQ(proposeSetting(449'998'250, 12'012'000, ""), (Proposal{3'250, 8}));
    EXPECT_EQ(proposeSetting(449'998'250, 12'025'000, ""), (Proposal{3'250, 5}));
    EXPECT_EQ(proposeSetting(450'002'500, 12'000'000, "2.5"), (Proposal{2'500, 8}));
    EXPECT_EQ(proposeSetting(450'002'500, 12'012'500, "2.5"), (Proposal{2'500, 5}));
}

// The list once more, stated as pairs.
TEST(ProposedSetting, IsTheFirstValidPairOfTheListForAnyFrequency) {
    std::mt19937 random(20);
    std::uniform_int_distribution<std::int32_t> kilohertz(20'000, 1'000'000);
    const std::vector<std::int32_t> references{12'800'000, 13'000'000, 14'400'000, 9'600'000, 12'562'500};
    for (int round = 0; round < 20'000; ++round) {
        const std::int32_t vco = kilohertz(random) * 1000 + (round % 3) * 250;
        const std::int32_t ref = references[static_cast<std::size_t>(round) % references.size()];
        const std::string text = round % 2 == 0 ? "2.5" : "12.5";
        std::optional<Proposal> expected;
        for (const std::int32_t step : {12500, 25000, 6250, 5000, 3250, round % 2 == 0 ? 2500 : 1000, 1000}) {
            for (const std::int16_t modulo : {std::int16_t{8}, std::int16_t{5}}) {
                synth::clsPLLSetting setting;
                setting.InitialiseSettings(vco, modulo, step, ref);
                if (!expected && setting.IsValid()) {
                    expected = Proposal{.step = step, .modulo = modulo};
                }
            }
        }
        ASSERT_EQ(proposeSetting(vco, ref, text), expected) << vco << ' ' << ref;
    }
}

TEST(ProposedSetting, MissingIsToldInThreeLinesForEachDirection) {
    EXPECT_EQ(synth::noProposalText("RX"),
              "Reference frequency divide error or main frequency divide error.\r\n"
              "Unable to calculate the Synthesizer Step Size and Modulo required for the specified RX VCO frequency "
              "automatically\r\n"
              "Hint: Correct frequency or alter modulus or step size.");
    EXPECT_NE(synth::noProposalText("TX").find("specified TX VCO"), std::string::npos);
}

}  // namespace
}  // namespace telvar::tests
