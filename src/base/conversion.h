// From values to numbers, truths and texts. Conversions that cannot be made throw ConversionFailure
// ("Type mismatch" or "Overflow"); none of them loses information silently except by the rounding that it names.
#pragma once

#include <cstdint>
#include <string>

#include "base/number_text.h"
#include "base/value.h"

namespace telvar::base {

// The bits of a value, as the mode readings combine them with &, | and ~: True is -1, False and Empty are 0, integers
// are as they are, reals are rounded half to even, a text is read as a number with "."; the texts "True" and "False"
// are understood in any letter case.
[[nodiscard]] std::int64_t toBits(const Value& value);

// Non-zero. The texts "True" and "False" are understood in any letter case.
[[nodiscard]] bool isTrue(const Value& value);

// Numeric value; True is -1.
[[nodiscard]] double toDouble(const Value& value);

// In single precision.
[[nodiscard]] float toSingle(const Value& value);

// Rounded half to even; out of the type's range is "Overflow".
[[nodiscard]] std::int16_t toInt16(const Value& value);
[[nodiscard]] std::int32_t toInt32(const Value& value);

// The shortest form of a number (15 significant digits, 7 for a single), "True" or "False", the text itself, "" for
// Empty.
[[nodiscard]] std::string toText(const Value& value, const NumberFormat& format = {});

// "0.0"-like formatting of any numeric value; a single counts as the decimal number of its 7 significant digits.
[[nodiscard]] std::string toFixedText(const Value& value, int decimals, const NumberFormat& format = {});

}  // namespace telvar::base
