#include "model/readings.h"

#include <cstdint>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "base/conversion.h"
#include "base/failure.h"

namespace telvar::tests {
namespace {

using base::Empty;
using base::Value;

[[nodiscard]] Value boolean(bool value) { return value; }
[[nodiscard]] Value integer(int value) { return std::int32_t{value}; }

const Value yes = boolean(true);
const Value no = boolean(false);
const Value none = Empty{};

// For messages: the stored value with its type told apart from an equal number.
[[nodiscard]] std::string shown(const Value& value) {
    return std::holds_alternative<Empty>(value) ? "empty" : base::toText(value);
}

struct ModeCase {
    Value modeBits;
    Value flag;
    std::string_view reading;
};

TEST(RfMode, IsReadBitByBitFromModeBitsAndTheRepeaterFlag) {
    const std::vector<ModeCase> cases{
        {integer(0x00), no, "Duplex"},
        {integer(0x00), none, "Duplex"},
        {integer(0x00), integer(0), "Duplex"},
        {integer(0x00), yes, "P25 Repeater"},
        {integer(0x00), integer(-1), "P25 Repeater"},
        {integer(0x00), integer(1), "P25 Repeater"},
        {integer(0x00), integer(2), "P25 Repeater"},

        {integer(0x01), no, "Simplex"},
        {integer(0x01), none, "Simplex"},
        {integer(0x01), yes, "P25 Repeater"},
        {integer(0x01), integer(-1), "P25 Repeater"},
        {integer(0x01), integer(1), "P25 Repeater"},
        {integer(0x01), integer(2), "P25 Repeater"},

        {integer(0x02), no, "Repeater"},
        {integer(0x02), none, "Repeater"},
        {integer(0x02), yes, "Mixed Mode"},
        {integer(0x02), integer(-1), "Mixed Mode"},
        {integer(0x02), integer(1), "Repeater"},
        {integer(0x02), integer(2), "Mixed Mode"},
        {integer(0x02), integer(3), "Mixed Mode"},
        {integer(0x02), integer(4), "Repeater"},

        {integer(0x03), no, "Repeater"},
        {integer(0x03), none, "Repeater"},
        {integer(0x03), yes, "Mixed Mode"},
        {integer(0x03), integer(-1), "Mixed Mode"},
        {integer(0x03), integer(1), "Repeater"},
        {integer(0x03), integer(2), "Mixed Mode"},

        {integer(0x04), no, "Duplex"},
        {integer(0x04), yes, "P25 Repeater"},
        {integer(0x05), no, "Simplex"},
        {integer(0x06), yes, "Mixed Mode"},
        {integer(0xFC), no, "Duplex"},
        {integer(0xFD), no, "Simplex"},
        {integer(0xFE), no, "Repeater"},
        {integer(0x80), yes, "P25 Repeater"},

        {none, no, "Duplex"},
        {none, none, "Duplex"},
        {none, yes, "P25 Repeater"},
        {none, integer(1), "P25 Repeater"},
        {no, yes, "P25 Repeater"},
        {no, no, "Duplex"},
        {yes, no, "Repeater"},
        {yes, yes, "Mixed Mode"},
        {yes, integer(1), "Repeater"},
        {integer(-1), no, "Repeater"},
        {integer(-1), yes, "Mixed Mode"},
        {integer(-1), integer(2), "Mixed Mode"},
        {integer(-2), none, "Repeater"},

        {2.0, no, "Repeater"},
        {2.5, no, "Repeater"},
        {1.5F, no, "Repeater"},
        {0.5, no, "Duplex"},
        {Value{std::string("2")}, Value{std::string("True")}, "Mixed Mode"},
    };
    for (const auto& [modeBits, flag, reading] : cases) {
        EXPECT_EQ(model::rfModeReading(modeBits, flag), reading) << shown(modeBits) << " and " << shown(flag);
    }
}

TEST(TransmitMode, IsDigitalOnlyWhereTheFlagHasTheNarrowBandBit) {
    const std::vector<ModeCase> cases{
        {integer(0x80), yes, "P25 Digital"},
        {integer(0x80), integer(-1), "P25 Digital"},
        {integer(0x80), integer(0x80), "P25 Digital"},
        {integer(0x80), integer(1), "Analogue"},
        {integer(0x80), integer(2), "Analogue"},
        {integer(0x80), no, "Analogue"},
        {integer(0x80), none, "Analogue"},
        {integer(0x83), yes, "P25 Digital"},
        {integer(0x84), yes, "P25 Digital"},
        {integer(0xFF), yes, "P25 Digital"},
        {integer(-1), yes, "P25 Digital"},
        {yes, yes, "P25 Digital"},
        {yes, integer(1), "Analogue"},
        {integer(0x7F), yes, "Analogue"},
        {integer(0x03), yes, "Analogue"},
        {integer(0x04), yes, "Analogue"},
        {integer(0), yes, "Analogue"},
        {integer(1), integer(1), "Analogue"},
        {integer(2), integer(2), "Analogue"},
        {none, yes, "Analogue"},
        {no, yes, "Analogue"},
        {none, none, "Analogue"},
    };
    for (const auto& [modeBits, flag, reading] : cases) {
        EXPECT_EQ(model::transmitModeReading(modeBits, flag), reading) << shown(modeBits) << " and " << shown(flag);
    }
}

struct BandwidthCase {
    Value modeBits;
    Value switchable;
    Value narrowOnly;
    std::string_view reading;
};

TEST(Bandwidth, IsReadBitByBitOnceTheRadioCanSwitch) {
    const std::vector<BandwidthCase> cases{
        {integer(0x00), yes, no, "Wide"},
        {integer(0x80), yes, no, "Narrow"},
        {integer(0x80), yes, none, "Narrow"},
        {integer(0x7F), yes, no, "Wide"},
        {integer(0x03), yes, no, "Wide"},
        {integer(0x04), yes, no, "Wide"},
        {integer(-1), yes, no, "Narrow"},
        {yes, yes, no, "Narrow"},
        {no, yes, no, "Wide"},
        {none, yes, none, "Wide"},
        {integer(1), yes, no, "Wide"},
        {integer(2), yes, no, "Wide"},

        {integer(0x00), yes, yes, "Narrow"},
        {integer(0x00), yes, integer(-1), "Narrow"},
        {integer(0x00), yes, integer(1), "Narrow"},
        {integer(0x00), yes, integer(2), "Narrow"},
        {integer(0x80), yes, yes, "Narrow"},
        {none, integer(-1), yes, "Narrow"},
        {none, integer(1), yes, "Narrow"},
        {none, integer(1), integer(1), "Narrow"},
        {none, integer(1), integer(2), "Wide"},
        {none, integer(2), integer(1), "Wide"},
        {none, integer(2), integer(2), "Narrow"},
        {none, integer(2), no, "Wide"},
        {integer(0x80), integer(2), integer(1), "Narrow"},

        {integer(0x80), no, no, "N/A"},
        {integer(0x80), none, yes, "N/A"},
        {integer(0x80), integer(0), yes, "N/A"},
        {integer(0x00), no, yes, "N/A"},
        {none, none, none, "N/A"},
    };
    for (const auto& [modeBits, switchable, narrowOnly, reading] : cases) {
        EXPECT_EQ(model::bandwidthReading(modeBits, switchable, narrowOnly), reading)
            << shown(modeBits) << ", switchable " << shown(switchable) << ", narrow only " << shown(narrowOnly);
    }
}

TEST(Unconfigured, MeansThatBothFrequenciesAreZero) {
    EXPECT_TRUE(model::isUnconfigured(integer(0), integer(0)));
    EXPECT_TRUE(model::isUnconfigured(none, none));
    EXPECT_TRUE(model::isUnconfigured(0.0, none));
    EXPECT_TRUE(model::isUnconfigured(no, -0.0));
    EXPECT_FALSE(model::isUnconfigured(integer(145'000'000), integer(0)));
    EXPECT_FALSE(model::isUnconfigured(integer(0), integer(145'000'000)));
    EXPECT_FALSE(model::isUnconfigured(0.0, 145'012'500.0));
    // By or, not by sum: these two would cancel out.
    EXPECT_FALSE(model::isUnconfigured(integer(5), integer(-5)));
}

TEST(Unconfigured, LooksAtWholeHertzRoundedHalfToEven) {
    EXPECT_TRUE(model::isUnconfigured(0.5, 0.25F));
    EXPECT_FALSE(model::isUnconfigured(0.51, 0.0));
    EXPECT_FALSE(model::isUnconfigured(0.0, 1.5));
}

TEST(Unconfigured, TakesFrequenciesBeyondThirtyTwoBits) {
    EXPECT_FALSE(model::isUnconfigured(5e9, 0.0));
    // Its lower 32 bits are all zero.
    EXPECT_FALSE(model::isUnconfigured(4'294'967'296.0, 0.0));
    EXPECT_FALSE(model::isUnconfigured(std::int64_t{1} << 40, none));
}

TEST(Unconfigured, RefusesWhatIsNoNumber) {
    EXPECT_THROW((void)model::isUnconfigured(Value{base::Unusable{}}, integer(0)), base::ConversionFailure);
    EXPECT_THROW((void)model::isUnconfigured(integer(0), Value{std::string("none")}), base::ConversionFailure);
}

TEST(Modulo, IsEightForTheSelectorOneOnly) {
    EXPECT_EQ(model::moduloReading(integer(1)), 8);
    EXPECT_EQ(model::moduloReading(Value{std::int16_t{1}}), 8);
    EXPECT_EQ(model::moduloReading(1.0), 8);
    EXPECT_EQ(model::moduloReading(Value{std::string("1")}), 8);
    for (const auto& selector :
         {integer(0), integer(2), integer(5), integer(8), integer(-1), yes, no, none, Value{0.99}, Value{1.01F}}) {
        EXPECT_EQ(model::moduloReading(selector), 5) << shown(selector);
    }
}

TEST(Readings, RefuseWhatHasNoBits) {
    const Value unusable = base::Unusable{};
    EXPECT_THROW((void)model::rfModeReading(unusable, yes), base::ConversionFailure);
    EXPECT_THROW((void)model::rfModeReading(integer(0), unusable), base::ConversionFailure);
    EXPECT_THROW((void)model::transmitModeReading(unusable, yes), base::ConversionFailure);
    EXPECT_THROW((void)model::transmitModeReading(integer(0x80), Value{std::string("digital")}),
                 base::ConversionFailure);
    EXPECT_THROW((void)model::bandwidthReading(unusable, yes, no), base::ConversionFailure);
    EXPECT_THROW((void)model::bandwidthReading(integer(0), unusable, no), base::ConversionFailure);
    EXPECT_THROW((void)model::bandwidthReading(integer(0), yes, unusable), base::ConversionFailure);
    EXPECT_THROW((void)model::moduloReading(unusable), base::ConversionFailure);
    // The radio alone decides here.
    EXPECT_EQ(model::bandwidthReading(unusable, no, unusable), "N/A");
}

}  // namespace
}  // namespace telvar::tests
