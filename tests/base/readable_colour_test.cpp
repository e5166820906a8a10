// Which colours can be read on which: the rule by which a text's colour gives way to the scheme of the user.
#include "base/readable_colour.h"

#include <gtest/gtest.h>

namespace telvar::base {
namespace {

constexpr Rgb black = 0x000000;
constexpr Rgb white = 0xFFFFFF;
constexpr Rgb red = 0x0000FF;
constexpr Rgb green = 0x00FF00;
constexpr Rgb dialogGrey = 0xF0F0F0;

TEST(ReadableColours, ContrastRunsFromOneToTwentyOneEitherWayRound) {
    EXPECT_DOUBLE_EQ(contrast(white, white), 1.0);
    EXPECT_NEAR(contrast(black, white), 21.0, 1e-9);
    EXPECT_NEAR(contrast(white, black), 21.0, 1e-9);
    EXPECT_GT(contrast(green, black), contrast(green, white));
}

TEST(ReadableColours, PureRedStaysPureRedOnEveryUsualField) {
    for (const Rgb field : {white, dialogGrey, black}) {
        EXPECT_EQ(readable(red, field), red) << std::hex << field;
    }
}

TEST(ReadableColours, RedOnRedBecomesAnotherThatCanBeRead) {
    for (const Rgb field : {red, Rgb{0x0000C0}, Rgb{0x4040FF}, Rgb{0x808080}}) {
        EXPECT_NE(readable(red, field), red) << std::hex << field;
        EXPECT_GE(contrast(readable(red, field), field), readableContrast) << std::hex << field;
    }
}

TEST(ReadableColours, EveryTextCanBeReadOnEveryGroundInTheEnd) {
    constexpr Rgb step = 0x33;
    for (Rgb level = 0; level < 6 * 6 * 6; ++level) {
        const Rgb back = (level % 6 * step) | ((level / 6 % 6 * step) << 8U) | ((level / 36 * step) << 16U);
        for (const Rgb text : {black, white, red, green, back}) {
            EXPECT_GE(contrast(readable(text, back), back), readableContrast) << std::hex << text << " on " << back;
        }
    }
}

TEST(ReadableColours, OfTwoTheOneThatStandsOutMoreIsTaken) {
    EXPECT_EQ(readableOf(white, black, green), black);
    EXPECT_EQ(readableOf(black, white, green), black);
    EXPECT_EQ(readableOf(black, white, red), black);
    EXPECT_EQ(readableOf(black, white, Rgb{0x800000}), white);
    // Neither of a scheme's two light colours is of use on green.
    EXPECT_GE(contrast(readableOf(white, Rgb{0x00FFFF}, green), green), readableContrast);
}

TEST(ReadableColours, AMixtureLiesBetweenItsTwo) {
    EXPECT_EQ(mixed(black, white, 0), black);
    EXPECT_EQ(mixed(black, white, 100), white);
    EXPECT_EQ(mixed(Rgb{0x0000C8}, Rgb{0x640000}, 50), Rgb{0x320064});
}

}  // namespace
}  // namespace telvar::base
