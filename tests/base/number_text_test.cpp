#include "base/number_text.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>

#include <gtest/gtest.h>

namespace telvar::tests {
namespace {

using base::fixedText;
using base::NumberError;
using base::NumberFormat;
using base::numberText;
using base::readDouble;
using base::readInt16;
using base::readInt32;
using base::readLeadingNumber;
using base::readSingle;
using base::scaledText;

constexpr NumberFormat comma{.decimalSeparator = ','};

TEST(StrictReading, TakesEveryFormOfADecimalNumber) {
    struct Case {
        std::string_view text;
        double value;
    };
    constexpr std::array cases{
        Case{"0", 0},
        Case{"145.5", 145.5},
        Case{"+7", 7},
        Case{"-0.25", -0.25},
        Case{".5", 0.5},
        Case{"5.", 5},
        Case{"+.5", 0.5},
        Case{"  12.5  ", 12.5},
        Case{"1e3", 1000},
        Case{"1E+3", 1000},
        Case{"25e-1", 2.5},
        Case{"007", 7},
        Case{"1.e2", 100},
        Case{"000000000000000000000000000001", 1},
        Case{"0.1", 0.1},
        Case{"9.999999", 9.999999},
        Case{"1.7976931348623157e308", 1.7976931348623157e308},
    };
    for (const auto& test : cases) {
        const auto value = readDouble(test.text);
        ASSERT_TRUE(value.has_value()) << test.text;
        EXPECT_EQ(*value, test.value) << test.text;
    }
}

TEST(StrictReading, RefusesWhateverIsNotOneNumber) {
    constexpr std::array<std::string_view, 30> texts{"",
                                                     " ",
                                                     "abc",
                                                     "12abc",
                                                     "1 2",
                                                     "--1",
                                                     "+-1",
                                                     "+",
                                                     "-",
                                                     ".",
                                                     "-.",
                                                     "e5",
                                                     "1e",
                                                     "1e+",
                                                     "1e1.5",
                                                     "0x10",
                                                     "&H10",
                                                     "inf",
                                                     "nan",
                                                     "infinity",
                                                     "1,5",
                                                     "1.2.3",
                                                     "\t1",
                                                     "1\t",
                                                     "1\n",
                                                     "1_000",
                                                     "1'000",
                                                     "1,000.5",
                                                     "- 1",
                                                     "\xC2\xA0"
                                                     "1"};
    for (const auto text : texts) {
        const auto value = readDouble(text);
        ASSERT_FALSE(value.has_value()) << text;
        EXPECT_EQ(value.error(), NumberError::NotANumber) << text;
        EXPECT_EQ(readSingle(text).error(), NumberError::NotANumber) << text;
        EXPECT_EQ(readInt16(text).error(), NumberError::NotANumber) << text;
        EXPECT_EQ(readInt32(text).error(), NumberError::NotANumber) << text;
    }
}

TEST(StrictReading, KnowsOnlyTheSeparatorOfItsFormat) {
    EXPECT_EQ(readDouble("145,5", comma), 145.5);
    EXPECT_EQ(readDouble(",5", comma), 0.5);
    EXPECT_EQ(readDouble("145.5", comma).error(), NumberError::NotANumber);
    EXPECT_EQ(readDouble("1.234,5", comma).error(), NumberError::NotANumber);
    EXPECT_EQ(readDouble("145,500").error(), NumberError::NotANumber);
}

TEST(StrictReading, ANumberTooLargeIsTooLargeAndOneNextToNothingIsZero) {
    EXPECT_EQ(readDouble("1e309").error(), NumberError::TooLarge);
    EXPECT_EQ(readDouble("-1e309").error(), NumberError::TooLarge);
    EXPECT_EQ(readDouble("1e99999999999999999999").error(), NumberError::TooLarge);
    EXPECT_EQ(readDouble(std::string(400, '9')).error(), NumberError::TooLarge);
    EXPECT_EQ(readDouble(std::string(400, '9') + "e-1").error(), NumberError::TooLarge);
    EXPECT_EQ(readDouble("0." + std::string(400, '0') + "1e800").error(), NumberError::TooLarge);
    EXPECT_EQ(readSingle("3.5e38").error(), NumberError::TooLarge);
    EXPECT_EQ(readSingle("1e400").error(), NumberError::TooLarge);

    EXPECT_EQ(readDouble("1e-400"), 0.0);
    EXPECT_EQ(readDouble("-1e-400"), 0.0);
    EXPECT_EQ(readDouble("1e-99999999999999999999"), 0.0);
    EXPECT_EQ(readDouble("0." + std::string(400, '0') + "1"), 0.0);
    EXPECT_EQ(readDouble("0e99999999999999999999"), 0.0);
    EXPECT_EQ(readSingle("1e-60"), 0.0F);
}

TEST(StrictReading, KeepsNumbersBelowTheNormalRange) {
    EXPECT_EQ(readDouble("4.9406564584124654e-324"), std::numeric_limits<double>::denorm_min());
    EXPECT_EQ(readDouble("1e-310"), 1e-310);
    EXPECT_EQ(readSingle("1e-40"), 1e-40F);
}

TEST(StrictReading, LongTextsAreReadToTheLastDigitThatCounts) {
    EXPECT_EQ(readDouble("0." + std::string(5000, '3')), 1.0 / 3.0);
    EXPECT_EQ(readDouble(std::string(5000, '0') + "42"), 42.0);
    EXPECT_EQ(readDouble("1" + std::string(300, '0') + "e-300"), 1.0);
    EXPECT_EQ(readDouble(std::string(100000, '7') + "x").error(), NumberError::NotANumber);
}

TEST(StrictReading, ASingleIsRoundedOnceFromTheText) {
    // Through a double, this lies exactly between two singles and would go to the even one.
    EXPECT_EQ(readSingle("1.00000029802322387695312500001"), 1.00000035762787F);
    EXPECT_EQ(readSingle("25.5"), 25.5F);
    EXPECT_EQ(readSingle("5.2"), 5.2F);
    EXPECT_EQ(readSingle("25.50000001"), 25.5F);
}

TEST(StrictReading, IntegersAreRoundedHalfToEven) {
    EXPECT_EQ(readInt16("0.5"), 0);
    EXPECT_EQ(readInt16("1.5"), 2);
    EXPECT_EQ(readInt16("254.5"), 254);
    EXPECT_EQ(readInt16("255.5"), 256);
    EXPECT_EQ(readInt16("-0.5"), 0);
    EXPECT_EQ(readInt16(" 1e2 "), 100);
    EXPECT_EQ(readInt32("2147483647.4"), 2147483647);
}

TEST(StrictReading, IntegersBeyondTheirTypeAreTooLarge) {
    EXPECT_EQ(readInt16("32767.4"), 32767);
    EXPECT_EQ(readInt16("32767.5").error(), NumberError::TooLarge);
    EXPECT_EQ(readInt16("-32768"), -32768);
    EXPECT_EQ(readInt16("-32769").error(), NumberError::TooLarge);
    EXPECT_EQ(readInt32("2147483648").error(), NumberError::TooLarge);
    EXPECT_EQ(readInt32("1e400").error(), NumberError::TooLarge);
}

TEST(StrictReading, ItsFailuresAreDescribedLikeConversions) {
    EXPECT_EQ(base::describe(NumberError::NotANumber), "Type mismatch");
    EXPECT_EQ(base::describe(NumberError::TooLarge), "Overflow");
}

TEST(LeadingNumber, IgnoresWhatFollows) {
    struct Case {
        std::string_view text;
        double value;
    };
    constexpr std::array cases{
        Case{"12abc", 12}, Case{"255.5", 255.5}, Case{"  7 8", 7}, Case{"", 0},     Case{"abc", 0},
        Case{"-3x", -3},   Case{"1e2z", 100},    Case{"1e", 1},    Case{"1e+", 1},  Case{"-", 0},
        Case{".5.5", 0.5}, Case{"1,5", 1},       Case{"\t5", 0},   Case{"0x10", 0}, Case{"   ", 0},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(readLeadingNumber(test.text), test.value) << test.text;
    }
    EXPECT_EQ(readLeadingNumber("1,5 kHz", comma), 1.5);
}

TEST(LeadingNumber, IsInfiniteWhereTheNumberIsTooLarge) {
    EXPECT_EQ(readLeadingNumber("1e999 x"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(readLeadingNumber("-1e999"), -std::numeric_limits<double>::infinity());
}

TEST(NumberText, OfADoubleIsTheShortestFormOfFifteenDigits) {
    struct Case {
        double value;
        std::string_view text;
    };
    constexpr std::array cases{
        Case{0, "0"},
        Case{-0.0, "0"},
        Case{1, "1"},
        Case{-1, "-1"},
        Case{255, "255"},
        Case{0.5, "0.5"},
        Case{-0.5, "-0.5"},
        Case{6.25, "6.25"},
        Case{12.5, "12.5"},
        Case{0.1 + 0.2, "0.3"},
        Case{1.0 / 3.0, "0.333333333333333"},
        Case{2.0 / 3.0, "0.666666666666667"},
        Case{5199.9998, "5199.9998"},
        Case{0.0001, "0.0001"},
        Case{0.00012, "0.00012"},
        Case{0.00001, "1E-05"},
        Case{0.000012345, "1.2345E-05"},
        Case{-1e-100, "-1E-100"},
        Case{100, "100"},
        Case{1e14, "100000000000000"},
        Case{999999999999999, "999999999999999"},
        Case{1e15, "1E+15"},
        Case{1e20, "1E+20"},
        Case{1.25e20, "1.25E+20"},
        Case{-1e300, "-1E+300"},
        Case{99999.9999999999999, "100000"},
        Case{123456789.123456, "123456789.123456"},
        Case{std::numeric_limits<double>::denorm_min(), "4.94065645841247E-324"},
        Case{std::numeric_limits<double>::max(), "1.79769313486232E+308"},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(numberText(test.value), test.text) << test.value;
    }
}

TEST(NumberText, OfASingleHasSevenDigits) {
    EXPECT_EQ(numberText(71.9F), "71.9");
    EXPECT_EQ(numberText(5.2F), "5.2");
    EXPECT_EQ(numberText(1.0F / 3.0F), "0.3333333");
    EXPECT_EQ(numberText(100.0F), "100");
    EXPECT_EQ(numberText(0.0F), "0");
    EXPECT_EQ(numberText(9999999.0F), "9999999");
    EXPECT_EQ(numberText(1e7F), "1E+07");
    EXPECT_EQ(numberText(std::numeric_limits<float>::denorm_min()), "1.401298E-45");
}

TEST(NumberText, TakesTheSeparatorOfItsFormat) {
    EXPECT_EQ(numberText(6.25, comma), "6,25");
    EXPECT_EQ(numberText(0.5F, comma), "0,5");
    EXPECT_EQ(numberText(1.5e20, comma), "1,5E+20");
    EXPECT_EQ(numberText(7.0, comma), "7");
}

TEST(NumberText, ReadsBackAsTheSameNumber) {
    std::mt19937_64 random(20241);  // NOLINT: the same numbers in every run
    std::uniform_real_distribution<double> exponent(-30, 30);
    for (int i = 0; i < 20000; ++i) {
        const double value = std::pow(10.0, exponent(random)) * (i % 2 == 0 ? 1 : -1);
        const double shown = readDouble(numberText(value)).value();
        EXPECT_NEAR(shown / value, 1.0, 1e-14) << numberText(value);
        EXPECT_EQ(numberText(shown), numberText(value));
    }
}

TEST(FixedText, RoundsHalvesOfTheDecimalNumberAwayFromZero) {
    struct Case {
        double value;
        int decimals;
        std::string_view text;
    };
    constexpr std::array cases{
        Case{0.05, 1, "0.1"},
        Case{0.25, 1, "0.3"},
        Case{-0.25, 1, "-0.3"},
        Case{0.35, 1, "0.4"},
        Case{0.45, 1, "0.5"},
        Case{1.005, 2, "1.01"},
        Case{2.675, 2, "2.68"},
        Case{0.15, 1, "0.2"},
        Case{67, 1, "67.0"},
        Case{71.95, 1, "72.0"},
        Case{0.049999, 1, "0.0"},
        Case{-0.04, 1, "0.0"},
        Case{9.99, 1, "10.0"},
        Case{99.95, 1, "100.0"},
        Case{0, 1, "0.0"},
        Case{-0.0, 6, "0.000000"},
        Case{145, 6, "145.000000"},
        Case{145.0125, 6, "145.012500"},
        Case{0.0000005, 6, "0.000001"},
        Case{0.00000049, 6, "0.000000"},
        Case{-0.0000005, 6, "-0.000001"},
        Case{450.1234565, 6, "450.123457"},
        Case{999.9999995, 6, "1000.000000"},
        Case{1e20, 1, "100000000000000000000.0"},
        Case{7.5, 0, "8"},
        Case{6.5, 0, "7"},
        Case{0.4, 0, "0"},
        Case{-0.4, 0, "0"},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(fixedText(test.value, test.decimals), test.text) << test.value;
    }
}

TEST(FixedText, OptionalDecimalsAppearOnlyWhereTheyAreNotZero) {
    EXPECT_EQ(fixedText(450.1, 6, 7), "450.100000");
    EXPECT_EQ(fixedText(450.1234567, 6, 7), "450.1234567");
    EXPECT_EQ(fixedText(450.12345678, 6, 7), "450.1234568");
    EXPECT_EQ(fixedText(450.00000004, 6, 7), "450.000000");
    EXPECT_EQ(fixedText(1.0, 0, 2), "1");
    EXPECT_EQ(fixedText(1.25, 0, 2), "1.25");
    EXPECT_EQ(fixedText(1.5, 0, 2), "1.5");
}

TEST(FixedText, TakesTheSeparatorOfItsFormat) {
    EXPECT_EQ(fixedText(145.5, 6, comma), "145,500000");
    EXPECT_EQ(fixedText(1.0 / 3.0, 2, comma), "0,33");
    EXPECT_EQ(fixedText(7.0, 0, comma), "7");
}

TEST(FixedText, OfTheSmallestAndTheLargestNumbersIsComplete) {
    EXPECT_EQ(fixedText(std::numeric_limits<double>::denorm_min(), 6), "0.000000");
    const auto largest = fixedText(std::numeric_limits<double>::max(), 1);
    EXPECT_EQ(largest, "179769313486232" + std::string(309 - 15, '0') + ".0");
}

TEST(FixedText, OfWholeHertzInMegahertzShowsEveryHertz) {
    std::mt19937 random(7);  // NOLINT: the same numbers in every run
    std::uniform_int_distribution<std::int64_t> hertz(-2'000'000'000, 2'000'000'000);
    for (int i = 0; i < 20000; ++i) {
        const auto value = hertz(random);
        EXPECT_EQ(fixedText(static_cast<double>(value) / 1e6, 6), scaledText(value, 6));
    }
}

TEST(ScaledText, SetsTheSeparatorAndFillsWithZeros) {
    EXPECT_EQ(scaledText(145'000'000, 6), "145.000000");
    EXPECT_EQ(scaledText(1, 6), "0.000001");
    EXPECT_EQ(scaledText(0, 6), "0.000000");
    EXPECT_EQ(scaledText(-1, 1), "-0.1");
    EXPECT_EQ(scaledText(-145'000'000, 6, comma), "-145,000000");
    EXPECT_EQ(scaledText(12, 0), "12");
    EXPECT_EQ(scaledText(std::numeric_limits<std::int64_t>::min(), 6), "-9223372036854.775808");
    EXPECT_EQ(scaledText(std::numeric_limits<std::int64_t>::max(), 0), "9223372036854775807");
}

TEST(NumbersThatAreNone, HaveTextsThatNoReaderTakesBack) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const double nan = std::nan("");
    EXPECT_EQ(numberText(infinity), "inf");
    EXPECT_EQ(numberText(-infinity), "-inf");
    EXPECT_EQ(numberText(nan), "nan");
    EXPECT_EQ(fixedText(infinity, 6), "inf");
    EXPECT_EQ(fixedText(nan, 1), "nan");
    EXPECT_EQ(readDouble(numberText(infinity)).error(), NumberError::NotANumber);
}

}  // namespace
}  // namespace telvar::tests
