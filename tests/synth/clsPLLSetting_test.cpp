// The calculator against worked values, the extremes of its arguments, and a second statement of its rules in wide
// integers.
#include "synth/clsPLLSetting.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <ostream>
#include <random>

#include "synth/divider.h"

namespace telvar::tests {
namespace {

using synth::clsPLLSetting;

constexpr std::int32_t smallest32 = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t largest32 = std::numeric_limits<std::int32_t>::max();
constexpr std::int16_t smallest16 = std::numeric_limits<std::int16_t>::min();
constexpr std::int16_t largest16 = std::numeric_limits<std::int16_t>::max();
constexpr std::int32_t reference = 12'800'000;

struct Setting {
    std::int32_t vco;
    std::int16_t modulo;
    std::int32_t step;
    std::int32_t reference;

    friend std::ostream& operator<<(std::ostream& out, const Setting& setting) {
        return out << "vco " << setting.vco << ", modulo " << setting.modulo << ", step " << setting.step
                   << ", reference " << setting.reference;
    }
};

[[nodiscard]] bool isValid(const Setting& setting) {
    clsPLLSetting calculator;
    calculator.InitialiseSettings(setting.vco, setting.modulo, setting.step, setting.reference);
    return calculator.IsValid();
}

// Rounds down in extended precision, which holds every quotient of 32-bit input.
[[nodiscard]] std::int64_t down(std::int64_t dividend, std::int64_t divisor) {
    return static_cast<std::int64_t>(
        std::floor(static_cast<long double>(dividend) / static_cast<long double>(divisor)));
}

[[nodiscard]] bool in32(std::int64_t value) { return value >= smallest32 && value <= largest32; }

// The rules again, without the shared split and without exceptions.
[[nodiscard]] bool secondOpinion(const Setting& setting) {
    const std::int64_t comparison = std::int64_t{setting.modulo} * setting.step;
    if (!in32(comparison) || comparison == 0) {
        return false;
    }
    const bool faultyRemainder =
        (comparison == -1 && setting.reference == smallest32) || (setting.step == -1 && setting.vco == smallest32);
    if (faultyRemainder || setting.reference % comparison != 0 || setting.vco % std::int64_t{setting.step} != 0) {
        return false;
    }
    const std::int64_t ratio = down(setting.vco, comparison);
    const std::int64_t x = ratio - 8;
    if (!in32(ratio) || !in32(x)) {
        return false;
    }
    const std::int64_t a = down(x, 64) - 3;
    const std::int64_t r = x % 64;
    const std::int64_t b = down(r, 8);
    const std::int64_t c = r % 8;
    const std::int64_t m = a - c - b;
    return m >= 0 && m <= 4095 && c >= 0 && c <= 15 && b >= 0 && b <= 15;
}

TEST(PllSetting, BeforeTheFirstCallReadsZeroAndValid) {
    const clsPLLSetting calculator;
    EXPECT_EQ(calculator.VCOFreq(), 0);
    EXPECT_EQ(calculator.Modulo(), 0);
    EXPECT_EQ(calculator.FreqStepSize(), 0);
    EXPECT_TRUE(calculator.IsValid());
}

TEST(PllSetting, TheWorkedExampleIsValid) {
    EXPECT_TRUE(isValid({450'000'000, 8, 12'500, reference}));
    EXPECT_EQ(synth::splitDivider(4500), (synth::DividerSplit{.main = 62, .eights = 1, .ones = 4}));
}

TEST(PllSetting, ReturnsItsInputsWhateverTheVerdict) {
    clsPLLSetting calculator;
    calculator.InitialiseSettings(450'000'001, 8, 12'500, reference);
    EXPECT_FALSE(calculator.IsValid());
    EXPECT_EQ(calculator.VCOFreq(), 450'000'001);
    EXPECT_EQ(calculator.Modulo(), 8);
    EXPECT_EQ(calculator.FreqStepSize(), 12'500);

    calculator.InitialiseSettings(largest32, largest16, largest32, reference);
    EXPECT_FALSE(calculator.IsValid());
    EXPECT_EQ(calculator.VCOFreq(), largest32);
    EXPECT_EQ(calculator.Modulo(), largest16);
    EXPECT_EQ(calculator.FreqStepSize(), largest32);
}

TEST(PllSetting, NothingOfAnEarlierCallSurvives) {
    clsPLLSetting calculator;
    calculator.InitialiseSettings(450'000'000, 0, 0, reference);
    ASSERT_FALSE(calculator.IsValid());
    calculator.InitialiseSettings(450'000'000, 8, 12'500, reference);
    EXPECT_TRUE(calculator.IsValid());
}

TEST(PllSetting, AStepOrModuloOfZeroIsInvalidWithoutAnError) {
    EXPECT_FALSE(isValid({450'000'000, 8, 0, reference}));
    EXPECT_FALSE(isValid({450'000'000, 0, 12'500, reference}));
    EXPECT_FALSE(isValid({0, 0, 0, 0}));
}

TEST(PllSetting, TheReferenceMustBeAWholeMultipleOfTheComparisonFrequency) {
    EXPECT_FALSE(isValid({450'000'000, 8, 12'500, reference + 1}));
    EXPECT_TRUE(isValid({450'000'000, 8, 12'500, 100'000}));
}

TEST(PllSetting, TheVcoMustBeAWholeMultipleOfTheStep) {
    EXPECT_FALSE(isValid({450'006'250, 8, 12'500, reference}));
    EXPECT_TRUE(isValid({450'006'250, 8, 6'250, reference}));
}

// With modulo 1 and step 1 the ratio is the VCO frequency itself, so every ratio can be reached.
[[nodiscard]] bool ratioIsValid(std::int32_t ratio) { return isValid({ratio, 1, 1, 1}); }

TEST(PllSetting, ARatioBelowEightIsAlwaysInvalid) {
    for (std::int32_t ratio = -200; ratio < 8; ++ratio) {
        EXPECT_FALSE(ratioIsValid(ratio)) << ratio;
    }
}

TEST(PllSetting, ANegativeRestIsRoundedDownNotTowardsZero) {
    EXPECT_EQ(synth::splitDivider(8 - 1), (synth::DividerSplit{.main = -4 + 1 + 1, .eights = -1, .ones = -1}));
    EXPECT_EQ(synth::splitDivider(8 - 64), (synth::DividerSplit{.main = -4, .eights = 0, .ones = 0}));
    EXPECT_EQ(synth::splitDivider(8 - 63).eights, -8);
}

TEST(PllSetting, TheMainCounterHasTwelveBits) {
    EXPECT_TRUE(ratioIsValid(8 + (64 * 4098)));
    EXPECT_FALSE(ratioIsValid(8 + (64 * 4099)));
    EXPECT_FALSE(ratioIsValid(8 + (64 * 2)));
    EXPECT_TRUE(ratioIsValid(8 + (64 * 3)));
}

TEST(PllSetting, EachCounterHasBoundsOfItsOwn) {
    using synth::DividerSplit;
    using synth::fitsCounters;
    EXPECT_TRUE(fitsCounters({.main = 14, .eights = 0, .ones = 0}, 14));
    EXPECT_TRUE(fitsCounters({.main = 4095, .eights = 15, .ones = 15}, 14));
    for (const auto& split :
         {DividerSplit{.main = 13, .eights = 0, .ones = 0}, DividerSplit{4096, 0, 0}, DividerSplit{100, -1, 0},
          DividerSplit{100, 16, 0}, DividerSplit{100, 0, -1}, DividerSplit{100, 0, 16}}) {
        EXPECT_FALSE(fitsCounters(split, 14)) << split.main << ' ' << split.eights << ' ' << split.ones;
    }
}

TEST(PllSetting, EveryOverflowIsInvalid) {
    EXPECT_FALSE(isValid({450'000'000, 8, (largest32 / 8) + 1, reference}));
    EXPECT_FALSE(isValid({450'000'000, largest16, largest32, reference}));
    EXPECT_FALSE(isValid({smallest32, 1, -1, 12'800'000}));
    EXPECT_FALSE(isValid({450'000'000, 1, -1, smallest32}));
    EXPECT_FALSE(isValid({smallest32, -1, 1, 12'800'000}));
    EXPECT_FALSE(isValid({smallest32 + 7, 1, 1, 1}));
    EXPECT_FALSE(isValid({smallest32, 1, 1, 1}));
}

TEST(PllSetting, AgreesWithASecondOpinionAtEveryCombinationOfExtremes) {
    constexpr std::array<std::int32_t, 13> wide{smallest32, smallest32 + 1, -12'800'000, -64,      -8, -1, 0, 1, 8,
                                                64,         12'800'000,     450'000'000, largest32};
    constexpr std::array<std::int16_t, 10> narrow{smallest16, -8, -5, -1, 0, 1, 5, 8, 64, largest16};
    for (const auto vco : wide) {
        for (const auto modulo : narrow) {
            for (const auto step : wide) {
                for (const auto ref : wide) {
                    const Setting setting{vco, modulo, step, ref};
                    ASSERT_EQ(isValid(setting), secondOpinion(setting)) << setting;
                }
            }
        }
    }
}

TEST(PllSetting, AgreesWithASecondOpinionOnAMillionRandomCombinations) {
    std::mt19937 random(20'011);
    std::uniform_int_distribution<std::int32_t> any(smallest32, largest32);
    std::uniform_int_distribution<std::int32_t> small(-40, 40);
    std::uniform_int_distribution<std::int32_t> multiple(0, 300'000);
    std::uniform_int_distribution<int> kind(0, 3);
    constexpr std::array<std::int32_t, 8> steps{12'500, 25'000, 6'250, 5'000, 3'250, 2'500, 1'000, 1};
    int valid = 0;
    for (int round = 0; round < 1'000'000; ++round) {
        Setting setting{any(random), static_cast<std::int16_t>(any(random)), any(random), any(random)};
        if (kind(random) != 0) {
            setting.modulo = kind(random) < 2 ? std::int16_t{8} : std::int16_t{5};
            setting.step = steps.at(static_cast<std::size_t>(multiple(random)) % steps.size());
            setting.reference = kind(random) == 0 ? setting.modulo * setting.step * small(random) : reference;
            setting.vco = static_cast<std::int32_t>(
                (std::int64_t{setting.step} * multiple(random) + (kind(random) == 0 ? small(random) : 0)) % largest32);
        }
        const bool expected = secondOpinion(setting);
        valid += expected ? 1 : 0;
        ASSERT_EQ(isValid(setting), expected) << setting;
    }
    EXPECT_GT(valid, 1000) << "the random settings are too rarely valid to tell anything";
}

}  // namespace
}  // namespace telvar::tests
