#include "base/conversion.h"

#include <cmath>
#include <limits>
#include <type_traits>
#include <utility>

#include "base/failure.h"
#include "base/rounding.h"
#include "base/text.h"

namespace telvar::base {

namespace {

template <class... Functions>
struct Overloaded : Functions... {
    using Functions::operator()...;
};

[[nodiscard]] bool says(const Value& value, std::string_view word) noexcept {
    const auto* text = std::get_if<std::string>(&value);
    return text != nullptr && equalIgnoringCase(trimmed(*text), word);
}

[[nodiscard]] double numberIn(const std::string& text) {
    const auto value = readDouble(text);
    if (!value) {
        throw value.error() == NumberError::TooLarge ? ConversionFailure::overflow()
                                                     : ConversionFailure::typeMismatch();
    }
    return *value;
}

// Applies `convert` to the number that a value holds, in the number's own type.
template <class Result, class Convert>
[[nodiscard]] Result withNumber(const Value& value, Convert convert) {
    return std::visit(Overloaded{
                          [&](Empty) -> Result { return convert(std::int16_t{0}); },
                          [&](bool truth) -> Result { return convert(static_cast<std::int16_t>(truth ? -1 : 0)); },
                          [&](const std::string& text) -> Result { return convert(numberIn(text)); },
                          [](Unusable) -> Result { throw ConversionFailure::typeMismatch(); },
                          [&](auto number) -> Result { return convert(number); },
                      },
                      value);
}

template <class Integer>
[[nodiscard]] Integer toInteger(const Value& value) {
    return withNumber<Integer>(value, [](auto number) -> Integer {
        if constexpr (std::is_floating_point_v<decltype(number)>) {
            return roundTo<Integer>(static_cast<double>(number));
        } else {
            if (!std::in_range<Integer>(number)) {
                throw ConversionFailure::overflow();
            }
            return static_cast<Integer>(number);
        }
    });
}

// The double nearest to the decimal number that a single stands for: 71.9, where a plain widening
// gives 71.9000015258789.
[[nodiscard]] double decimalNumber(float single) {
    const double tenths = std::round(static_cast<double>(single) * 10.0) / 10.0;
    if (std::fabs(tenths) < 1e5 && static_cast<float>(tenths) == single) {
        return tenths;
    }
    return readDouble(numberText(single)).value_or(static_cast<double>(single));
}

}  // namespace

std::int64_t toBits(const Value& value) {
    if (says(value, "true")) {
        return -1;
    }
    return says(value, "false") ? 0 : toInteger<std::int64_t>(value);
}

bool isTrue(const Value& value) {
    if (says(value, "true")) {
        return true;
    }
    if (says(value, "false")) {
        return false;
    }
    return withNumber<bool>(value, [](auto number) { return number != decltype(number){}; });
}

double toDouble(const Value& value) {
    return withNumber<double>(value, [](auto number) { return static_cast<double>(number); });
}

float toSingle(const Value& value) {
    return withNumber<float>(value, [](auto number) {
        const auto single = static_cast<float>(number);
        if (!(single >= std::numeric_limits<float>::lowest() && single <= std::numeric_limits<float>::max())) {
            throw ConversionFailure::overflow();
        }
        return single;
    });
}

std::int16_t toInt16(const Value& value) { return toInteger<std::int16_t>(value); }

std::int32_t toInt32(const Value& value) { return toInteger<std::int32_t>(value); }

std::string toText(const Value& value, const NumberFormat& format) {
    return std::visit(Overloaded{
                          [](Empty) { return std::string(); },
                          [](bool truth) { return std::string(truth ? "True" : "False"); },
                          [](const std::string& text) { return text; },
                          [](Unusable) -> std::string { throw ConversionFailure::typeMismatch(); },
                          [&](float number) { return numberText(number, format); },
                          [&](double number) { return numberText(number, format); },
                          [](auto integer) { return std::to_string(integer); },
                      },
                      value);
}

std::string toFixedText(const Value& value, int decimals, const NumberFormat& format) {
    if (const auto* single = std::get_if<float>(&value)) {
        return fixedText(decimalNumber(*single), decimals, format);
    }
    return fixedText(toDouble(value), decimals, format);
}

}  // namespace telvar::base
