#include "base/text.h"

#include <gtest/gtest.h>

namespace telvar::tests {
namespace {

using Parts = std::vector<std::string_view>;

TEST(Text, TrimmingTakesBlanksFromBothEndsAndNothingElse) {
    EXPECT_EQ(base::trimmed("  a b  "), "a b");
    EXPECT_EQ(base::trimmed("a"), "a");
    EXPECT_EQ(base::trimmed("   "), "");
    EXPECT_EQ(base::trimmed(""), "");
    EXPECT_EQ(base::trimmed(" \ta\t "), "\ta\t");
    EXPECT_EQ(base::trimmed("\na\r"), "\na\r");
    EXPECT_EQ(base::trimmed("\xC2\xA0x"), "\xC2\xA0x");
}

TEST(Text, UpperCasingIsAboutAsciiLettersOnly) {
    EXPECT_EQ(base::upperCased("p25 Digital"), "P25 DIGITAL");
    EXPECT_EQ(base::upperCased("az{`@["), "AZ{`@[");
    EXPECT_EQ(base::upperCased("\xC3\xA4"), "\xC3\xA4");
    EXPECT_EQ(base::upperCased(""), "");
}

TEST(Text, EqualityIgnoringCaseNeedsEqualLengths) {
    EXPECT_TRUE(base::equalIgnoringCase("Wide", "wIDE"));
    EXPECT_TRUE(base::equalIgnoringCase("", ""));
    EXPECT_FALSE(base::equalIgnoringCase("Wide", "Wide "));
    EXPECT_FALSE(base::equalIgnoringCase("Wide", "Wid"));
    EXPECT_FALSE(base::equalIgnoringCase("[", "{"));
}

TEST(Text, ReplacingTakesEveryOccurrenceAndDoesNotReadItsOwnResult) {
    EXPECT_EQ(base::replacedAll("1Hz2HzHz", "Hz", ""), "12");
    EXPECT_EQ(base::replacedAll("a\r\nb\r\n", "\r\n", "\r"), "a\rb\r");
    EXPECT_EQ(base::replacedAll("aaa", "aa", "a"), "aa");
    EXPECT_EQ(base::replacedAll("a", "a", "aa"), "aa");
    EXPECT_EQ(base::replacedAll("abc", "", "x"), "abc");
    EXPECT_EQ(base::replacedAll("", "a", "x"), "");
}

TEST(Text, SplittingKeepsEmptyParts) {
    EXPECT_EQ(base::splitAt("a\tb", '\t'), (Parts{"a", "b"}));
    EXPECT_EQ(base::splitAt("", '\t'), (Parts{""}));
    EXPECT_EQ(base::splitAt("\t", '\t'), (Parts{"", ""}));
    EXPECT_EQ(base::splitAt("a\r", '\r'), (Parts{"a", ""}));
    EXPECT_EQ(base::splitAt("a\t\tb", '\t'), (Parts{"a", "", "b"}));
}

}  // namespace
}  // namespace telvar::tests
