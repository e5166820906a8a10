#include "model/subtones.h"

#include <array>
#include <ranges>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "base/number_text.h"

namespace telvar::tests {
namespace {

// Ten codes a line; a code's place is the index that channel tables store.
constexpr std::string_view expectedCodes = "023 025 026 031 032 043 047 051 054 065 "
                                           "071 072 073 074 114 115 116 125 131 132 "
                                           "134 143 152 155 156 162 165 172 174 205 "
                                           "223 226 243 244 245 251 261 263 265 271 "
                                           "306 311 315 331 343 346 351 364 365 371 "
                                           "411 412 413 423 431 432 445 464 465 466 "
                                           "503 506 516 532 546 565 606 612 624 627 "
                                           "631 632 654 662 664 703 712 723 731 732 "
                                           "734 743 754";

[[nodiscard]] std::vector<std::string> words(std::string_view text) {
    std::istringstream stream{std::string(text)};
    std::vector<std::string> result;
    for (std::string word; stream >> word;) {
        result.push_back(word);
    }
    return result;
}

TEST(DcsCodes, AreTheEightyThreeCodesInStoredOrder) {
    const auto expected = words(expectedCodes);
    ASSERT_EQ(expected.size(), 83U);
    EXPECT_EQ(std::vector<std::string>(model::dcsCodes.begin(), model::dcsCodes.end()), expected);
}

TEST(DcsCodes, EveryCodeIsFoundAtItsIndex) {
    const auto expected = words(expectedCodes);
    for (std::size_t index = 0; index < expected.size(); ++index) {
        EXPECT_EQ(model::dcsIndexOf(expected[index]), static_cast<std::int16_t>(index)) << expected[index];
    }
}

TEST(DcsCodes, BlanksAroundACodeAreIgnoredAndNothingElseIs) {
    EXPECT_EQ(model::dcsIndexOf("023 "), 0);
    EXPECT_EQ(model::dcsIndexOf("  754"), 82);
    for (const std::string_view text :
         {"23", "D023", "0023", "023N", "", " ", "024", "02 3", "\t023", "755", "0", "MULTIPLE"}) {
        EXPECT_EQ(model::dcsIndexOf(text), std::nullopt) << text;
    }
}

TEST(CtcssTones, ReadBackwardsAreTheStandardTonesAscending) {
    std::string tones;
    for (const auto tone : model::ctcssTones | std::views::reverse) {
        tones += base::fixedText(base::readDouble(base::numberText(tone)).value(), 1) + " ";
    }
    EXPECT_EQ(tones,
              "67.0 69.3 71.9 74.4 77.0 79.7 82.5 85.4 88.5 91.5 94.8 97.4 100.0 103.5 107.2 110.9 114.8 118.8 123.0 "
              "127.3 131.8 136.5 141.3 146.2 151.4 156.7 162.2 167.9 173.8 179.9 186.2 192.8 203.5 210.7 218.1 225.7 "
              "233.6 241.8 250.3 ");
    EXPECT_EQ(model::ctcssTones.size(), 39U);
}

TEST(CtcssTones, LieWithinTheRangeThatTheRadioDecodes) {
    EXPECT_EQ(model::lowestTone, 65.0F);
    EXPECT_EQ(model::highestTone, 257.0F);
    for (const auto tone : model::ctcssTones) {
        EXPECT_GE(tone, model::lowestTone);
        EXPECT_LE(tone, model::highestTone);
    }
}

}  // namespace
}  // namespace telvar::tests
