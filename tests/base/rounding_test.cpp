#include "base/rounding.h"

#include <array>

#include <gtest/gtest.h>

namespace telvar::tests {
namespace {

TEST(Rounding, HalvesGoToTheEvenNeighbour) {
    struct Case {
        double value;
        double rounded;
    };
    constexpr std::array cases{
        Case{0.5, 0},
        Case{1.5, 2},
        Case{2.5, 2},
        Case{3.5, 4},
        Case{-0.5, 0},
        Case{-1.5, -2},
        Case{-2.5, -2},
        Case{254.5, 254},
        Case{255.5, 256},
        Case{0.49999999999999994, 0},
        Case{0.50000000000000011, 1},
        Case{-0.50000000000000011, -1},
        Case{4503599627370495.5, 4503599627370496},
        Case{1e300, 1e300},
        Case{-7, -7},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(base::roundHalfEven(test.value), test.rounded) << test.value;
    }
}

TEST(Rounding, IntoAnIntegerReachesBothEndsOfItsType) {
    EXPECT_EQ(base::roundTo<std::int16_t>(32767.4), 32767);
    EXPECT_EQ(base::roundTo<std::int16_t>(-32768.5), -32768);
    EXPECT_EQ(base::roundTo<std::int32_t>(2147483647.25), 2147483647);
    EXPECT_EQ(base::roundTo<std::int32_t>(-2147483648.5), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(base::roundTo<std::int64_t>(-9223372036854775808.0), std::numeric_limits<std::int64_t>::min());
}

TEST(Rounding, BeyondTheTypeIsAnOverflow) {
    EXPECT_THROW((void)base::roundTo<std::int16_t>(32767.5), base::ConversionFailure);
    EXPECT_THROW((void)base::roundTo<std::int16_t>(-32768.51), base::ConversionFailure);
    EXPECT_THROW((void)base::roundTo<std::int32_t>(2147483647.5), base::ConversionFailure);
    EXPECT_THROW((void)base::roundTo<std::int64_t>(9223372036854775808.0), base::ConversionFailure);
    EXPECT_THROW((void)base::roundTo<std::int32_t>(1e300), base::ConversionFailure);
}

TEST(Rounding, WhatIsNoNumberIsAnOverflow) {
    EXPECT_THROW((void)base::roundTo<std::int32_t>(std::numeric_limits<double>::quiet_NaN()), base::ConversionFailure);
    EXPECT_THROW((void)base::roundTo<std::int32_t>(std::numeric_limits<double>::infinity()), base::ConversionFailure);
    EXPECT_THROW((void)base::roundTo<std::int64_t>(-std::numeric_limits<double>::infinity()), base::ConversionFailure);
}

}  // namespace
}  // namespace telvar::tests
