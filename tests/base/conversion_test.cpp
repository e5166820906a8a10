#include "base/conversion.h"

#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <vector>

#include <gtest/gtest.h>

#include "base/failure.h"

namespace telvar::tests {
namespace {

using base::Empty;
using base::Unusable;
using base::Value;

const Value yes{true};
const Value no{false};

[[nodiscard]] Value text(std::string_view characters) { return base::textValue(characters); }

// What `convert` says of a value that it refuses.
template <class Convert>
[[nodiscard]] std::string refusal(Convert convert, const Value& value) {
    try {
        (void)convert(value);
    } catch (const base::ConversionFailure& failure) {
        return failure.description();
    }
    return "accepted";
}

TEST(Conversion, BitsOfEveryAlternative) {
    const std::vector<std::pair<Value, std::int64_t>> cases{
        {Empty{}, 0},
        {yes, -1},
        {no, 0},
        {std::int16_t{-3}, -3},
        {std::int32_t{128}, 128},
        {std::int64_t{5'000'000'000}, 5'000'000'000},
        {2.5F, 2},
        {3.5, 4},
        {-0.5, 0},
        {5e9, 5'000'000'000},
        {text("129"), 129},
        {text(" 2.5 "), 2},
        {text("True"), -1},
        {text("fALSE"), 0},
    };
    for (const auto& [value, bits] : cases) {
        EXPECT_EQ(base::toBits(value), bits) << base::toText(value);
    }
}

TEST(Conversion, TruthIsNonZero) {
    for (const auto& value : std::vector<Value>{yes, std::int16_t{1}, std::int32_t{-1}, std::int64_t{2}, 0.25F, 0.25,
                                                text("True"), text(" tRUE "), text("2")}) {
        EXPECT_TRUE(base::isTrue(value)) << base::toText(value);
    }
    for (const auto& value : std::vector<Value>{Empty{}, no, std::int16_t{0}, std::int32_t{0}, std::int64_t{0}, 0.0F,
                                                -0.0, text("False"), text("0")}) {
        EXPECT_FALSE(base::isTrue(value)) << base::toText(value);
    }
}

TEST(Conversion, DoubleOfEveryAlternative) {
    EXPECT_EQ(base::toDouble(Empty{}), 0.0);
    EXPECT_EQ(base::toDouble(yes), -1.0);
    EXPECT_EQ(base::toDouble(no), 0.0);
    EXPECT_EQ(base::toDouble(std::int16_t{7}), 7.0);
    EXPECT_EQ(base::toDouble(std::int32_t{-7}), -7.0);
    EXPECT_EQ(base::toDouble(std::int64_t{1} << 53), 9007199254740992.0);
    EXPECT_EQ(base::toDouble(0.1F), static_cast<double>(0.1F));
    EXPECT_EQ(base::toDouble(145.0125), 145.0125);
    EXPECT_EQ(base::toDouble(text("1e3")), 1000.0);
}

TEST(Conversion, SingleOfEveryAlternative) {
    EXPECT_EQ(base::toSingle(Empty{}), 0.0F);
    EXPECT_EQ(base::toSingle(yes), -1.0F);
    EXPECT_EQ(base::toSingle(std::int16_t{3}), 3.0F);
    EXPECT_EQ(base::toSingle(std::int32_t{16'777'217}), 16'777'216.0F);
    EXPECT_EQ(base::toSingle(2.9), 2.9F);
    EXPECT_EQ(base::toSingle(2.9F), 2.9F);
    EXPECT_EQ(base::toSingle(text("2.9")), 2.9F);
}

TEST(Conversion, IntegersOfEveryAlternative) {
    EXPECT_EQ(base::toInt16(Empty{}), 0);
    EXPECT_EQ(base::toInt16(yes), -1);
    EXPECT_EQ(base::toInt16(std::int32_t{32767}), 32767);
    EXPECT_EQ(base::toInt16(std::int64_t{-32768}), -32768);
    EXPECT_EQ(base::toInt16(0.5F), 0);
    EXPECT_EQ(base::toInt16(1.5), 2);
    EXPECT_EQ(base::toInt16(text("255.5")), 256);
    EXPECT_EQ(base::toInt32(std::int16_t{5}), 5);
    EXPECT_EQ(base::toInt32(145'012'500.5), 145'012'500);
    EXPECT_EQ(base::toInt32(145'012'501.5), 145'012'502);
    EXPECT_EQ(base::toInt32(text("-7")), -7);
}

TEST(Conversion, WhatDoesNotFitIsAnOverflow) {
    EXPECT_EQ(refusal(base::toInt16, std::int32_t{32768}), "Overflow");
    EXPECT_EQ(refusal(base::toInt16, 32767.5), "Overflow");
    EXPECT_EQ(refusal(base::toInt32, 5e9), "Overflow");
    EXPECT_EQ(refusal(base::toInt32, std::int64_t{2147483648}), "Overflow");
    EXPECT_EQ(refusal(base::toInt32, text("1e10")), "Overflow");
    EXPECT_EQ(refusal(base::toBits, 1e19), "Overflow");
    EXPECT_EQ(refusal(base::toBits, std::numeric_limits<double>::quiet_NaN()), "Overflow");
    EXPECT_EQ(refusal(base::toSingle, 1e300), "Overflow");
    EXPECT_EQ(refusal(base::toSingle, -1e39), "Overflow");
    EXPECT_EQ(refusal(base::toDouble, text("1e400")), "Overflow");
}

TEST(Conversion, WhatIsNoNumberIsATypeMismatchForEveryReader) {
    for (const auto& value : std::vector<Value>{Unusable{}, text("abc"), text(""), text("1,5"), text("12x")}) {
        EXPECT_EQ(refusal(base::toBits, value), "Type mismatch");
        EXPECT_EQ(refusal(base::isTrue, value), "Type mismatch");
        EXPECT_EQ(refusal(base::toDouble, value), "Type mismatch");
        EXPECT_EQ(refusal(base::toSingle, value), "Type mismatch");
        EXPECT_EQ(refusal(base::toInt16, value), "Type mismatch");
        EXPECT_EQ(refusal(base::toInt32, value), "Type mismatch");
        EXPECT_EQ(refusal([](const Value& v) { return base::toFixedText(v, 1); }, value), "Type mismatch");
    }
    EXPECT_EQ(refusal([](const Value& v) { return base::toText(v); }, Unusable{}), "Type mismatch");
}

TEST(Conversion, TextOfEveryAlternative) {
    const std::vector<std::pair<Value, std::string_view>> cases{
        {Empty{}, ""},
        {yes, "True"},
        {no, "False"},
        {std::int16_t{-5}, "-5"},
        {std::int32_t{145'000'000}, "145000000"},
        {std::int64_t{5'000'000'000}, "5000000000"},
        {71.9F, "71.9"},
        {6.25, "6.25"},
        {1e20, "1E+20"},
        {text(" as it is "), " as it is "},
        {text(""), ""},
    };
    for (const auto& [value, expected] : cases) {
        EXPECT_EQ(base::toText(value), expected);
    }
}

TEST(Conversion, TextTakesTheSeparatorOfTheFormatForRealsOnly) {
    constexpr base::NumberFormat comma{.decimalSeparator = ','};
    EXPECT_EQ(base::toText(6.25, comma), "6,25");
    EXPECT_EQ(base::toText(71.9F, comma), "71,9");
    EXPECT_EQ(base::toText(text("6.25"), comma), "6.25");
    EXPECT_EQ(base::toFixedText(71.9F, 1, comma), "71,9");
}

TEST(Conversion, FixedTextOfASingleRoundsTheDecimalNumberThatItStandsFor) {
    EXPECT_EQ(base::toFixedText(71.9F, 1), "71.9");
    EXPECT_EQ(base::toFixedText(67.0F, 1), "67.0");
    // The single nearest to 71.95 lies below it.
    EXPECT_EQ(base::toFixedText(71.95F, 1), "72.0");
    EXPECT_EQ(base::toFixedText(71.95, 1), "72.0");
    EXPECT_EQ(base::toFixedText(2.675F, 2), "2.68");
    EXPECT_EQ(base::toFixedText(0.04F, 1), "0.0");
    EXPECT_EQ(base::toFixedText(-0.04F, 1), "0.0");
    EXPECT_EQ(base::toFixedText(123456.7F, 1), "123456.7");
    EXPECT_EQ(base::toFixedText(std::numeric_limits<float>::infinity(), 1), "inf");
}

TEST(Conversion, EveryTenthOfAHertzKeptAsASingleShowsAsItself) {
    for (int tenths = 0; tenths <= 30000; ++tenths) {
        const auto single = static_cast<float>(tenths) / 10.0F;
        EXPECT_EQ(base::toFixedText(single, 1), base::scaledText(tenths, 1));
    }
}

TEST(Conversion, FixedTextOfEveryAlternative) {
    EXPECT_EQ(base::toFixedText(Empty{}, 1), "0.0");
    EXPECT_EQ(base::toFixedText(std::int16_t{100}, 1), "100.0");
    EXPECT_EQ(base::toFixedText(std::int64_t{145}, 6), "145.000000");
    EXPECT_EQ(base::toFixedText(text("67.05"), 1), "67.1");
    EXPECT_EQ(base::toFixedText(yes, 1), "-1.0");
}

}  // namespace
}  // namespace telvar::tests
