#include "interchange/key_text.h"

#include <gtest/gtest.h>

namespace telvar::interchange {
namespace {

using model::KeyKind;
using model::MemberKind;

TEST(KeyText, NumbersHaveTheTypeOfTheTableFile) {
    EXPECT_EQ(readKeyText(KeyKind::Frequency, " 145500000 ", {}).value(), base::Value(145'500'000));
    EXPECT_EQ(readKeyText(KeyKind::Frequency, "+145500000.5", {}).value(), base::Value(145'500'000.5));
    EXPECT_EQ(readKeyText(KeyKind::Step, "6.25e3", {}).value(), base::Value(6'250));
    EXPECT_EQ(readKeyText(KeyKind::Tone, "67.1", {}).value(), base::Value(67.1F));
    EXPECT_EQ(readKeyText(KeyKind::Integer, "-3", {}).value(), base::Value(-3));
    EXPECT_EQ(readMemberText(MemberKind::Single, "2.9", {}).value(), base::Value(2.9F));
    EXPECT_EQ(readMemberText(MemberKind::Integer32, "-21400000", {}).value(), base::Value(-21'400'000));
}

TEST(KeyText, BooleansAreWordsOrNumbers) {
    for (const auto* text : {"true", "TRUE", "Yes", " 1", "-1"}) {
        EXPECT_EQ(readKeyText(KeyKind::Boolean, text, {}).value(), base::Value(true)) << text;
    }
    for (const auto* text : {"false", "False", "NO", "0 "}) {
        EXPECT_EQ(readMemberText(MemberKind::Boolean, text, {}).value(), base::Value(false)) << text;
    }
    for (const auto* text : {"", "2", "on", "t", "1.0"}) {
        EXPECT_FALSE(readKeyText(KeyKind::Boolean, text, {})) << text;
    }
}

TEST(KeyText, CodesAreFourHexadecimalDigits) {
    EXPECT_EQ(readKeyText(KeyKind::Code, "0aF9", {}).value(), base::textValue("0aF9"));
    for (const auto* text : {"", "123", "12345", " 123", "12G4", "-123"}) {
        EXPECT_EQ(readKeyText(KeyKind::Code, text, {}).error(),
                  "must be four hexadecimal digits, not \"" + std::string(text) + "\"");
    }
}

TEST(KeyText, WhatIsNoNumberIsRefused) {
    for (const auto* text : {"", "abc", "1 2", "1,5", "0x10", "inf", "nan", "\t1"}) {
        EXPECT_FALSE(readKeyText(KeyKind::Frequency, text, {})) << text;
    }
    EXPECT_EQ(readKeyText(KeyKind::Integer, "2147483648", {}).error(),
              "must lie between -2147483648 and 2147483647, not be 2147483648");
    EXPECT_EQ(readKeyText(KeyKind::Frequency, "1e309", {}).error(), "is too large a number");
    EXPECT_EQ(readKeyText(KeyKind::Tone, "1e39", {}).error(), "is too large a number");
}

TEST(KeyText, IsWrittenSoThatItReadsBackTheSame) {
    const base::NumberFormat comma{.decimalSeparator = ','};
    EXPECT_EQ(keyText(KeyKind::Frequency, 145'500'000.0, comma).value(), "145500000");
    EXPECT_EQ(keyText(KeyKind::Tone, 67.1F, comma).value(), "67,1");
    EXPECT_EQ(readKeyText(KeyKind::Tone, "67,1", comma).value(), base::Value(67.1F));
    EXPECT_EQ(keyText(KeyKind::Boolean, true, comma).value(), "true");
    EXPECT_EQ(keyText(KeyKind::Code, base::textValue("00A1"), comma).value(), "00A1");
    EXPECT_EQ(keyText(KeyKind::Integer, base::Empty{}, comma).value(), "0");
    EXPECT_EQ(keyText(KeyKind::Integer, 2.5, comma).error(), "must be a whole number, not 2.5");
}

}  // namespace
}  // namespace telvar::interchange
