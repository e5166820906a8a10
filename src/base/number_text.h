// Numbers as people write and read them. The decimal separator comes from one NumberFormat, so that what is shown can
// be read back; grouping separators are neither written nor accepted, since "145,500" must not become 145500 MHz.
#pragma once

#include <cstdint>
#include <expected>
#include <string>
#include <string_view>

namespace telvar::base {

struct NumberFormat {
    char decimalSeparator = '.';
    bool operator==(const NumberFormat&) const = default;
};

enum class NumberError { NotANumber, TooLarge };

// "Type mismatch" for NotANumber, "Overflow" for TooLarge.
[[nodiscard]] std::string describe(NumberError error);

// Strict reading: the whole text, leading and trailing blanks apart, must be one number: sign, digits, decimal
// separator, exponent. Tabs, signs alone, hexadecimal, "inf" and "nan" are not numbers.
[[nodiscard]] std::expected<double, NumberError> readDouble(std::string_view text, const NumberFormat& format = {});
[[nodiscard]] std::expected<float, NumberError> readSingle(std::string_view text, const NumberFormat& format = {});

// Strict reading, then rounded half to even into 16 or 32 bits.
[[nodiscard]] std::expected<std::int16_t, NumberError> readInt16(std::string_view text,
                                                                 const NumberFormat& format = {});
[[nodiscard]] std::expected<std::int32_t, NumberError> readInt32(std::string_view text,
                                                                 const NumberFormat& format = {});

// The number that the text begins with, whatever follows it; 0 where it begins with none.
[[nodiscard]] double readLeadingNumber(std::string_view text, const NumberFormat& format = {});

// Shortest form with 15 significant digits (7 for a single), with a leading zero: 0.5, 6.25, 12.5, 1E+20.
[[nodiscard]] std::string numberText(double value, const NumberFormat& format = {});
[[nodiscard]] std::string numberText(float value, const NumberFormat& format = {});

// The decimal number of 15 significant digits, rounded half away from zero. maximumDecimals above minimumDecimals adds
// further digits only where they are not zero ("0.000000#").
[[nodiscard]] std::string fixedText(double value, int minimumDecimals, int maximumDecimals,
                                    const NumberFormat& format = {});
[[nodiscard]] inline std::string fixedText(double value, int decimals, const NumberFormat& format = {}) {
    return fixedText(value, decimals, decimals, format);
}

// A whole number with the decimal separator set `decimals` digits from its end: (145000000, 6) is "145.000000".
[[nodiscard]] std::string scaledText(std::int64_t value, int decimals, const NumberFormat& format = {});

}  // namespace telvar::base
