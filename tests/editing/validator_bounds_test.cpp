// Every column's bounds to the last representable number on either side, in the precision in which the column reads,
// with a decimal point and a decimal comma; and what is no value of any column, column by column.
#include "editing/validators.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "model/memory_data_store.h"

namespace telvar::tests {
namespace {

// Enough digits to tell neighbours of the type apart.
[[nodiscard]] std::string exact(double value) {
    std::array<char, 400> text{};
    std::snprintf(text.data(), text.size(), "%.17g", value);
    return text.data();
}
[[nodiscard]] std::string exact(float value) {
    std::array<char, 400> text{};
    std::snprintf(text.data(), text.size(), "%.9g", static_cast<double>(value));
    return text.data();
}
template <class Number>
[[nodiscard]] std::string above(Number value) {
    return exact(std::nextafter(value, std::numeric_limits<Number>::infinity()));
}
template <class Number>
[[nodiscard]] std::string below(Number value) {
    return exact(std::nextafter(value, -std::numeric_limits<Number>::infinity()));
}

struct ColumnName {
    std::int16_t column;
    std::string name;
};

struct Bound {
    std::string text;
    std::string error;  // without the column's name; empty: accepted
};

class ValidatorBounds : public testing::Test {
protected:
    [[nodiscard]] std::string verdict(std::int16_t column, const std::string& text, char separator = '.') {
        return editing::validateCell({.store = store_, .channel = 7, .format = {.decimalSeparator = separator}}, column,
                                     text);
    }
    // Each also with blanks around it, and where a comma separates the decimals.
    void expect(const std::vector<ColumnName>& columns, const std::vector<Bound>& bounds) {
        for (const auto& [column, name] : columns) {
            for (const auto& [text, error] : bounds) {
                const auto wanted = error.empty() ? "" : error + " " + name;
                EXPECT_EQ(verdict(column, text), wanted) << column << " [" << text << "]";
                EXPECT_EQ(verdict(column, "  " + text + " "), wanted) << column << " [" << text << "] in blanks";
                auto comma = text;
                std::ranges::replace(comma, '.', ',');
                EXPECT_EQ(verdict(column, comma, ','), wanted) << column << " [" << comma << "]";
            }
        }
    }

    model::MemoryDataStore store_;
};

TEST_F(ValidatorBounds, OfAFrequencyAreDoubles) {
    const std::string range = "Invalid channel frequency value (out of range)";
    expect({{1, "RX Freq"}, {2, "RX Freq"}}, {{"0", ""},
                                              {"0.000", ""},
                                              {exact(std::numeric_limits<double>::denorm_min()), range},
                                              {"-" + exact(std::numeric_limits<double>::denorm_min()), range},
                                              {above(0.0), range},
                                              {below(10.0), range},
                                              {exact(10.0), ""},
                                              {above(10.0), ""},
                                              {below(1000.0), ""},
                                              {exact(1000.0), ""},
                                              {above(1000.0), range},
                                              {"-10", range},
                                              {exact(std::numeric_limits<double>::max()), range},
                                              {"1.8e308", "Error in validating channel frequency (Overflow)"},
                                              {"-1.8e308", "Error in validating channel frequency (Overflow)"}});
}

TEST_F(ValidatorBounds, OfAToneAreSingles) {
    const std::string range = "Invalid CTCSS value (out of range, must be 65Hz to 257Hz)";
    const auto tone = [](const std::string& number) { return number + "Hz"; };
    expect({{3, "TX Subtone"}, {4, "RX Subtone"}}, {{tone("0"), ""},
                                                    {tone("-0.0"), ""},
                                                    {tone(above(0.0F)), range},
                                                    {tone(below(65.0F)), range},
                                                    // The double below 65 is the single 65.
                                                    {tone(below(65.0)), ""},
                                                    {tone(exact(65.0F)), ""},
                                                    {tone(above(65.0F)), ""},
                                                    {tone(below(257.0F)), ""},
                                                    {tone(exact(257.0F)), ""},
                                                    {tone(above(257.0)), ""},
                                                    {tone(above(257.0F)), range},
                                                    {tone("-65"), range},
                                                    {tone("3.4e38"), range},
                                                    {tone("3.5e38"), "Error in validating subtone (Overflow)"},
                                                    {tone("-3.5e38"), "Error in validating subtone (Overflow)"},
                                                    {"Hz100", "Invalid DCS value (not found in the table)"},
                                                    {"Hz 100 Hz", ""}});
}

TEST_F(ValidatorBounds, OfALevelAreRoundedHalfToEven) {
    const std::string range = "Invalid pot value (out of range)";
    const std::string overflow = "Error in validating Pot Value (Overflow)";
    expect({{9, "TX Power"},
            {10, "Ref Osc Freq WB"},
            {11, "VCO Lvl WB"},
            {12, "Ref Osc Lvl WB"},
            {13, "Ref Osc Freq NB"},
            {14, "VCO Lvl NB"},
            {15, "Ref Osc Lvl NB"},
            {18, "TX Binary Main"},
            {21, "RX Binary Main"}},
           {{"-0.5", ""},
            {below(-0.5), range},
            {"0", ""},
            {"255", ""},
            {below(255.5), ""},
            {"255.5", range},
            {"256", range},
            {below(32767.5), range},
            {"32767.5", overflow},
            {"-32768.5", range},
            {below(-32768.5), overflow}});
}

TEST_F(ValidatorBounds, OfTheSubtoneLevelAreRoundedHalfToEven) {
    const std::string range = "Invalid subtone level value (out of range)";
    const std::string overflow = "Error in validating Subtone Level Value (Overflow)";
    expect({{16, "Subtone Level"}}, {{"-0.5", ""},
                                     {below(-0.5), range},
                                     {"0", ""},
                                     {"6", ""},
                                     {"6.5", ""},
                                     {above(6.5), range},
                                     {"7", range},
                                     {"32768", overflow},
                                     {"-32769", overflow}});
}

TEST_F(ValidatorBounds, OfAStepAreSingles) {
    const std::string range = "Invalid Synthesizer Step size value (out of range)";
    expect({{17, "TX Synth Step Size"}, {20, "RX Synth Step Size"}},
           {{"0", range},
            {"-0.0", range},
            {above(0.0F), ""},
            // Nothing is left of it in single precision.
            {above(0.0), range},
            {below(0.0F), range},
            {below(25.5F), ""},
            {exact(25.5F), ""},
            {above(25.5), ""},
            {above(25.5F), range},
            {"3.5e38", "Error in validating Synthesizer step size (Overflow)"}});
}

TEST_F(ValidatorBounds, OfTheDcsCodesAreTheirFirstAndLast) {
    const std::string unknown = "Invalid DCS value (not found in the table)";
    expect({{3, "TX Subtone"}, {4, "RX Subtone"}}, {{"023", ""},
                                                    {"022", unknown},
                                                    {"024", unknown},
                                                    {"754", ""},
                                                    {"753", unknown},
                                                    {"755", unknown},
                                                    {"0023", unknown},
                                                    {"023 025", unknown}});
}

TEST_F(ValidatorBounds, OfACodeAreFourDigits) {
    for (const auto& [column, error] :
         {ColumnName{24, "Invalid P25 Talkgroup value P25 Talkgroup ID"},
          ColumnName{25, "Invalid P25 NAC value P25 TX NAC"}, ColumnName{26, "Invalid P25 NAC value P25 RX NAC"}}) {
        for (const std::string text : {"0", "F", "ffff", "FFFF", "0000", "   F   "}) {
            EXPECT_EQ(verdict(column, text), "") << column << text;
        }
        for (const std::string text : {"00000", "FFFFF", "10000", "000G", "00 0", "F   F", " FFFF", "+FFF", "-1"}) {
            EXPECT_EQ(verdict(column, text), error) << column << text;
        }
    }
}

// -- no value of any column ------------------------------------------------------------------------------------------

// What each column says to a text that is nothing at all.
const std::array<std::string, 27> refusals{
    "",
    "Error in validating channel frequency (Type mismatch) RX Freq",
    "Error in validating channel frequency (Type mismatch) RX Freq",
    "Invalid DCS value (not found in the table) TX Subtone",
    "Invalid DCS value (not found in the table) RX Subtone",
    "Unknown RF Mode value RF Mode",
    "Invalid scan data value Scan",
    "Unknown value for Wide/Narrow band setting WB/NB",
    "Invalid External PTT Mode value External PTT Mode",
    "Error in validating Pot Value (Type mismatch) TX Power",
    "Error in validating Pot Value (Type mismatch) Ref Osc Freq WB",
    "Error in validating Pot Value (Type mismatch) VCO Lvl WB",
    "Error in validating Pot Value (Type mismatch) Ref Osc Lvl WB",
    "Error in validating Pot Value (Type mismatch) Ref Osc Freq NB",
    "Error in validating Pot Value (Type mismatch) VCO Lvl NB",
    "Error in validating Pot Value (Type mismatch) Ref Osc Lvl NB",
    "Error in validating Subtone Level Value (Type mismatch) Subtone Level",
    "Error in validating Synthesizer step size (Type mismatch) TX Synth Step Size",
    "Error in validating Pot Value (Type mismatch) TX Binary Main",
    "Invalid modulo value TX Modulo",
    "Error in validating Synthesizer step size (Type mismatch) RX Synth Step Size",
    "Error in validating Pot Value (Type mismatch) RX Binary Main",
    "Invalid modulo value RX Modulo",
    "Invalid P25 Repeater enable value P25 Repeater Enable",
    "Invalid P25 Talkgroup value P25 Talkgroup ID",
    "Invalid P25 NAC value P25 TX NAC",
    "Invalid P25 NAC value P25 RX NAC",
};
constexpr std::int16_t firstCodeColumn = 24;

TEST_F(ValidatorBounds, OfEveryColumnKeepOutWhatIsNoText) {
    for (std::int16_t column = 1; column <= 26; ++column) {
        const auto& refusal = refusals.at(static_cast<std::size_t>(column));
        for (const std::string& text :
             {std::string("\t"), std::string(1, '\0'), std::string("\x01"), std::string("\x1B[0m"), std::string("\r"),
              std::string("\x7F"), std::string("\xC3\xA9"), std::string("\xC2\xA0"), std::string("\xE2\x82\xAC"),
              std::string("\xEF\xBC\x95"), std::string("\xF0\x9F\x93\xBB"), std::string("\xFF\xFE"),
              std::string("\xEF\xBB\xBF"), std::string(1'000'000, 'z'), std::string(1'000'000, '\t'),
              std::string("\t145.5"), std::string("5\t"), std::string("#REF!"), std::string("=1+1")}) {
            EXPECT_EQ(verdict(column, text), refusal) << column << " [" << text.substr(0, 20) << "]";
        }
    }
}

// Nothing typed is a code of zeros, and nothing else.
TEST_F(ValidatorBounds, OfTheCodesAloneTakeAnEmptyText) {
    for (std::int16_t column = 1; column <= 26; ++column) {
        for (const std::string& text : {std::string(), std::string(" "), std::string(1'000'000, ' ')}) {
            EXPECT_EQ(verdict(column, text),
                      column >= firstCodeColumn ? "" : refusals.at(static_cast<std::size_t>(column)))
                << column;
        }
    }
}

TEST_F(ValidatorBounds, AWordIsComparedInPlainLettersOnly) {
    struct Word {
        std::int16_t column;
        std::string text;
    };
    for (const auto& [column, text] :
         {Word{5, "S\xC4\xB1MPLEX"}, Word{5, "s\xC4\xB0mplex"}, Word{6, "YE\xC5\xBF"}, Word{8, "P25 D\xC4\xB1GITAL"},
          Word{6, "\xEF\xBC\xB9\xEF\xBC\xA5\xEF\xBC\xB3"}, Word{5, "Duplex\xC2\xA0"},
          Word{8, "P25\xC2\xA0"
                  "Digital"}}) {
        EXPECT_EQ(verdict(column, text), refusals.at(static_cast<std::size_t>(column))) << column << text;
    }
}

TEST_F(ValidatorBounds, ALevelHasNoGroupedDigits) {
    for (const char separator : {'.', ','}) {
        EXPECT_EQ(verdict(1, "1 000", separator), refusals[1]);
        EXPECT_EQ(verdict(1, "1,000.0", separator), refusals[1]);
        EXPECT_EQ(verdict(9, "1'0", separator), refusals[9]);
    }
    EXPECT_EQ(verdict(9, "1,0", '.'), refusals[9]);
    EXPECT_EQ(verdict(9, "1,0", ','), "");
}

}  // namespace
}  // namespace telvar::tests
