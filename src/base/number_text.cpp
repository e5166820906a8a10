#include "base/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <optional>
#include <utility>

#include "base/rounding.h"
#include "base/text.h"

namespace telvar::base {

namespace {

[[nodiscard]] bool isDigit(char c) noexcept { return c >= '0' && c <= '9'; }

// Length of the number that `text` begins with (sign, digits, separator, exponent), 0 where there is none.
[[nodiscard]] std::size_t numberLength(std::string_view text, char separator) noexcept {
    std::size_t at = 0;
    const auto digits = [&] {
        const auto from = at;
        while (at < text.size() && isDigit(text[at])) {
            ++at;
        }
        return at - from;
    };
    if (at < text.size() && (text[at] == '+' || text[at] == '-')) {
        ++at;
    }
    auto mantissa = digits();
    if (at < text.size() && text[at] == separator) {
        ++at;
        mantissa += digits();
    }
    if (mantissa == 0) {
        return 0;
    }
    const auto end = at;
    if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
        ++at;
        if (at < text.size() && (text[at] == '+' || text[at] == '-')) {
            ++at;
        }
        if (digits() == 0) {
            return end;
        }
        return at;
    }
    return end;
}

// The characters of a number in the form that from_chars reads: no plus sign, "." as separator.
[[nodiscard]] std::string portableNumber(std::string_view number, char separator) {
    std::string text(number.substr(number.starts_with('+') ? 1 : 0));
    std::ranges::replace(text, separator, '.');
    return text;
}

// Digits before the decimal point that a number has when written out, negative for zeros behind it: 2 for "12.5", -1
// for "0.02". Only the size matters to callers, so an exponent of any length is held to a million.
[[nodiscard]] int decimalOrder(std::string_view number) noexcept {
    const auto mark = std::min(number.find_first_of("eE"), number.size());
    const auto mantissa = number.substr(0, mark);
    const auto first = mantissa.find_first_of("123456789");
    if (first == std::string_view::npos) {
        return 0;
    }
    const auto point = std::min(mantissa.find('.'), mantissa.size());
    const auto order = first < point ? static_cast<int>(point - first) : -static_cast<int>(first - point - 1);
    if (mark == number.size()) {
        return order;
    }
    auto exponentText = number.substr(mark + 1);
    const bool below = exponentText.starts_with('-');
    exponentText.remove_prefix(below || exponentText.starts_with('+') ? 1 : 0);
    constexpr int most = 1'000'000;
    int exponent = 0;
    for (const char digit : exponentText) {
        exponent = std::min(exponent * 10 + (digit - '0'), most);
    }
    return below ? order - exponent : order + exponent;
}

template <class Real>
[[nodiscard]] std::expected<Real, NumberError> readPortable(const std::string& number) {
    Real value{};
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (error == std::errc::result_out_of_range) {
        // Reported for numbers next to nothing as well, which are no error.
        if (decimalOrder(number) <= 0) {
            return Real{};
        }
        return std::unexpected(NumberError::TooLarge);
    }
    return value;
}

template <class Real>
[[nodiscard]] std::expected<Real, NumberError> readReal(std::string_view text, const NumberFormat& format) {
    const auto number = trimmed(text);
    if (number.empty() || numberLength(number, format.decimalSeparator) != number.size()) {
        return std::unexpected(NumberError::NotANumber);
    }
    return readPortable<Real>(portableNumber(number, format.decimalSeparator));
}

template <class Integer>
[[nodiscard]] std::expected<Integer, NumberError> readInteger(std::string_view text, const NumberFormat& format) {
    const auto value = readDouble(text, format);
    if (!value) {
        return std::unexpected(value.error());
    }
    try {
        return roundTo<Integer>(*value);
    } catch (const ConversionFailure&) {
        return std::unexpected(NumberError::TooLarge);
    }
}

// A number as decimal digits d1 d2 d3 ... and an exponent: 0.d1d2d3... times ten to the exponent.
struct Decimal {
    bool negative = false;
    std::string digits;
    int exponent = 0;
};

[[nodiscard]] Decimal decimalOf(double value, int significantDigits) {
    if (value == 0.0) {
        return {.negative = false, .digits = "0", .exponent = 1};
    }
    std::array<char, 64> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value),
                                   std::chars_format::scientific, significantDigits - 1)
                         .ptr;
    const std::string_view text(buffer.data(), end);
    const auto mark = text.find('e');
    Decimal decimal{.negative = value < 0, .digits = {}};
    std::ranges::copy_if(text.substr(0, mark), std::back_inserter(decimal.digits), isDigit);
    const auto power = text.substr(mark + (text[mark + 1] == '+' ? 2 : 1));
    std::from_chars(power.data(), power.data() + power.size(), decimal.exponent);
    ++decimal.exponent;
    return decimal;
}

// Half away from zero, to `decimals` digits behind the separator. Leaves integral and fractional digits.
[[nodiscard]] std::pair<std::string, std::string> roundedAway(const Decimal& decimal, int decimals) {
    std::string digits = decimal.digits;
    int pointAt = decimal.exponent;
    if (pointAt < 1) {
        digits.insert(0, static_cast<std::size_t>(1 - pointAt), '0');
        pointAt = 1;
    }
    const auto keep = static_cast<std::size_t>(pointAt + decimals);
    const bool up = keep < digits.size() && digits[keep] >= '5';
    digits.resize(keep, '0');
    if (up) {
        auto at = digits.size();
        while (at > 0 && digits[at - 1] == '9') {
            digits[--at] = '0';
        }
        if (at > 0) {
            ++digits[at - 1];
        } else {
            digits.insert(digits.begin(), '1');
            ++pointAt;
        }
    }
    const auto point = static_cast<std::size_t>(pointAt);
    return {digits.substr(0, point), digits.substr(point)};
}

// No reader takes these texts back.
[[nodiscard]] std::string nonFiniteText(double value) {
    if (std::isnan(value)) {
        return "nan";
    }
    return value < 0 ? "-inf" : "inf";
}

// Ten to the power of `exponent`, 0 to 15, exact.
[[nodiscard]] double powerOfTen(int exponent) noexcept {
    static constexpr std::array<double, 16> powers{1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                   1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    return powers[static_cast<std::size_t>(exponent)];
}

// The fast way for nearly every value of a channel table: where `value` is the double nearest to a decimal number with
// so few digits, that number as an integer count of its last decimal.
[[nodiscard]] std::optional<std::int64_t> countOfDecimals(double value, int decimals, int significantDigits) noexcept {
    if (decimals > 15) {
        return std::nullopt;
    }
    const double scale = powerOfTen(decimals);
    const double count = std::round(value * scale);
    if (!(std::fabs(count) < powerOfTen(significantDigits)) || count / scale != value) {
        return std::nullopt;
    }
    return static_cast<std::int64_t>(count);
}

// Below this power of ten a number is written with an exponent: 0.0001, then 1E-05.
constexpr int smallestPlainPower = -4;

[[nodiscard]] std::string withExponent(const Decimal& decimal, const std::string& digits, const NumberFormat& format) {
    std::string text(1, digits[0]);
    if (digits.size() > 1) {
        text += format.decimalSeparator + digits.substr(1);
    }
    const int power = decimal.exponent - 1;
    const auto magnitude = std::to_string(std::abs(power));
    return text + (power < 0 ? "E-" : "E+") + (magnitude.size() < 2 ? "0" : "") + magnitude;
}

[[nodiscard]] std::string shortest(double value, int significantDigits, const NumberFormat& format) {
    if (!std::isfinite(value)) {
        return nonFiniteText(value);
    }
    if (const auto whole = countOfDecimals(value, 0, significantDigits)) {
        return std::to_string(*whole);
    }
    // Synthesizer steps in kilohertz.
    if (const auto thousandths = countOfDecimals(value, 3, significantDigits)) {
        auto text = scaledText(*thousandths, 3, format);
        text.resize(text.find_last_not_of('0') + 1);
        return text;
    }
    const Decimal decimal = decimalOf(value, significantDigits);
    const std::string digits = decimal.digits.substr(0, decimal.digits.find_last_not_of('0') + 1);
    std::string text = decimal.negative ? "-" : "";
    if (decimal.exponent > significantDigits || decimal.exponent <= smallestPlainPower) {
        return text + withExponent(decimal, digits, format);
    }
    if (decimal.exponent <= 0) {
        return text + '0' + format.decimalSeparator + std::string(static_cast<std::size_t>(-decimal.exponent), '0') +
               digits;
    }
    const auto point = static_cast<std::size_t>(decimal.exponent);
    if (digits.size() <= point) {
        return text + digits + std::string(point - digits.size(), '0');
    }
    return text + digits.substr(0, point) + format.decimalSeparator + digits.substr(point);
}

}  // namespace

std::string describe(NumberError error) {
    return error == NumberError::TooLarge ? ConversionFailure::overflow().description()
                                          : ConversionFailure::typeMismatch().description();
}

std::expected<double, NumberError> readDouble(std::string_view text, const NumberFormat& format) {
    return readReal<double>(text, format);
}

std::expected<float, NumberError> readSingle(std::string_view text, const NumberFormat& format) {
    return readReal<float>(text, format);
}

std::expected<std::int16_t, NumberError> readInt16(std::string_view text, const NumberFormat& format) {
    return readInteger<std::int16_t>(text, format);
}

std::expected<std::int32_t, NumberError> readInt32(std::string_view text, const NumberFormat& format) {
    return readInteger<std::int32_t>(text, format);
}

double readLeadingNumber(std::string_view text, const NumberFormat& format) {
    const auto number = text.substr(std::min(text.find_first_not_of(' '), text.size()));
    const auto length = numberLength(number, format.decimalSeparator);
    if (length == 0) {
        return 0.0;
    }
    const auto value = readPortable<double>(portableNumber(number.substr(0, length), format.decimalSeparator));
    constexpr double beyond = std::numeric_limits<double>::infinity();
    return value.value_or(number.starts_with('-') ? -beyond : beyond);
}

std::string numberText(double value, const NumberFormat& format) { return shortest(value, 15, format); }

std::string numberText(float value, const NumberFormat& format) {
    return shortest(static_cast<double>(value), 7, format);
}

std::string fixedText(double value, int minimumDecimals, int maximumDecimals, const NumberFormat& format) {
    if (!std::isfinite(value)) {
        return nonFiniteText(value);
    }
    if (minimumDecimals == maximumDecimals) {
        if (const auto count = countOfDecimals(value, maximumDecimals, 15)) {
            return scaledText(*count, maximumDecimals, format);
        }
    }
    const Decimal decimal = decimalOf(value, 15);
    auto [whole, fraction] = roundedAway(decimal, maximumDecimals);
    while (fraction.size() > static_cast<std::size_t>(minimumDecimals) && fraction.ends_with('0')) {
        fraction.pop_back();
    }
    const bool zero =
        whole.find_first_not_of('0') == std::string::npos && fraction.find_first_not_of('0') == std::string::npos;
    std::string text = decimal.negative && !zero ? "-" : "";
    text += whole;
    if (!fraction.empty()) {
        text += format.decimalSeparator + fraction;
    }
    return text;
}

std::string scaledText(std::int64_t value, int decimals, const NumberFormat& format) {
    std::array<char, 32> buffer{};
    const auto magnitude = value < 0 ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude).ptr;
    std::string digits(buffer.data(), end);
    const auto wanted = static_cast<std::size_t>(decimals) + 1;
    if (digits.size() < wanted) {
        digits.insert(0, wanted - digits.size(), '0');
    }
    if (decimals > 0) {
        digits.insert(digits.size() - static_cast<std::size_t>(decimals), 1, format.decimalSeparator);
    }
    return value < 0 ? "-" + digits : digits;
}

}  // namespace telvar::base
