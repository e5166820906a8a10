#include "store/table_values.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <utility>

#include "base/conversion.h"
#include "base/failure.h"
#include "base/number_text.h"
#include "store/json_text.h"

namespace telvar::store {

namespace {

// Kinds of keys and of radio-wide values come down to these.
enum class Sort { Hertz, Single, Tone, Whole, Truth, Text };

[[nodiscard]] Sort sortOf(model::KeyKind kind) noexcept {
    switch (kind) {
    case model::KeyKind::Frequency:
    case model::KeyKind::Step:
        return Sort::Hertz;
    case model::KeyKind::Tone:
        return Sort::Tone;
    case model::KeyKind::Integer:
        return Sort::Whole;
    case model::KeyKind::Boolean:
        return Sort::Truth;
    case model::KeyKind::Code:
        break;
    }
    return Sort::Text;
}

[[nodiscard]] Sort sortOf(model::MemberKind kind) noexcept {
    switch (kind) {
    case model::MemberKind::Boolean:
        return Sort::Truth;
    case model::MemberKind::Integer16:
    case model::MemberKind::Integer32:
        return Sort::Whole;
    case model::MemberKind::Single:
        return Sort::Single;
    case model::MemberKind::Text:
        break;
    }
    return Sort::Text;
}

[[nodiscard]] std::string_view wanted(Sort sort) noexcept {
    switch (sort) {
    case Sort::Hertz:
    case Sort::Tone:
        return "a number of hertz";
    case Sort::Single:
        return "a number";
    case Sort::Whole:
        return "a whole number";
    case Sort::Truth:
        return "true or false";
    case Sort::Text:
        break;
    }
    return "text";
}

[[nodiscard]] std::string given(const JsonScalar& json) {
    constexpr std::size_t longest = 40;
    switch (json.type) {
    case JsonType::Number:
        return json.text.size() > longest ? std::string(json.text.substr(0, longest)) + "..." : std::string(json.text);
    case JsonType::Text:
        return "text";
    case JsonType::List:
        return "a list";
    case JsonType::Object:
        return "an object";
    default:
        return std::string(json.text);
    }
}

[[nodiscard]] std::unexpected<Refusal> refused(Sort sort, const std::string& found) {
    return std::unexpected("must be " + std::string(wanted(sort)) + ", not " + found);
}

[[nodiscard]] std::unexpected<Refusal> tooLarge() { return std::unexpected(Refusal("is too large a number")); }

[[nodiscard]] bool isWhole(double number) noexcept { return std::trunc(number) == number; }

[[nodiscard]] bool fitsInt32(double number) noexcept {
    return number >= std::numeric_limits<std::int32_t>::min() && number <= std::numeric_limits<std::int32_t>::max();
}

[[nodiscard]] std::expected<base::Value, Refusal> readNumber(Sort sort, const JsonScalar& json) {
    const auto number = base::readDouble(json.text);
    if (!number) {
        return tooLarge();
    }
    if (sort == Sort::Tone || sort == Sort::Single) {
        // From the text: rounding twice, by way of a double, could miss the nearest single.
        const auto single = base::readSingle(json.text);
        return single ? std::expected<base::Value, Refusal>(*single) : tooLarge();
    }
    if (isWhole(*number) && fitsInt32(*number)) {
        return static_cast<std::int32_t>(*number);
    }
    if (sort == Sort::Hertz) {
        return *number;
    }
    if (!isWhole(*number)) {
        return refused(sort, given(json));
    }
    return std::unexpected("must lie between -2147483648 and 2147483647, not be " + given(json));
}

[[nodiscard]] std::expected<base::Value, Refusal> read(Sort sort, const JsonScalar& json) {
    switch (sort) {
    case Sort::Truth:
        if (json.type == JsonType::Boolean) {
            return json.truth;
        }
        break;
    case Sort::Text:
        if (json.type == JsonType::Text) {
            return base::textValue(json.text);
        }
        break;
    default:
        if (json.type == JsonType::Number) {
            return readNumber(sort, json);
        }
        break;
    }
    return refused(sort, given(json));
}

template <class Real>
[[nodiscard]] std::string shortestText(Real number) {
    // Below this every whole number is exact; the longest text is a little over 20 characters.
    constexpr auto exact = static_cast<Real>(1e15);
    std::array<char, 64> buffer{};
    const auto end =
        isWhole(static_cast<double>(number)) && std::fabs(number) <= exact
            ? std::to_chars(buffer.data(), buffer.data() + buffer.size(), static_cast<std::int64_t>(number))
            : std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
    return {buffer.data(), end.ptr};
}

[[nodiscard]] std::expected<std::string, Refusal> writeNumber(Sort sort, const base::Value& value) {
    if (sort == Sort::Tone || sort == Sort::Single) {
        return shortestText(base::toSingle(value));
    }
    if (const auto* single = std::get_if<float>(&value); single != nullptr && sort == Sort::Hertz) {
        return shortestText(*single);
    }
    const double number = base::toDouble(value);
    if (sort == Sort::Whole && !(isWhole(number) && fitsInt32(number))) {
        return refused(sort, base::toText(value));
    }
    return shortestText(number);
}

[[nodiscard]] std::expected<std::string, Refusal> write(Sort sort, const base::Value& value) {
    try {
        switch (sort) {
        case Sort::Truth:
            return base::isTrue(value) ? "true" : "false";
        case Sort::Text:
            return jsonQuoted(base::toText(value));
        default:
            return writeNumber(sort, value);
        }
    } catch (const base::ConversionFailure&) {
        return std::holds_alternative<std::string>(value) ? refused(sort, "text") : tooLarge();
    }
}

}  // namespace

Refusal refusalOf(model::KeyKind kind, const std::string& found) { return refused(sortOf(kind), found).error(); }

Refusal refusalOf(model::MemberKind kind, const std::string& found) { return refused(sortOf(kind), found).error(); }

std::expected<base::Value, Refusal> readValue(model::KeyKind kind, const JsonScalar& json) {
    return read(sortOf(kind), json);
}

std::expected<base::Value, Refusal> readValue(model::MemberKind kind, const JsonScalar& json) {
    return read(sortOf(kind), json);
}

std::expected<std::string, Refusal> writeValue(model::KeyKind kind, const base::Value& value) {
    return write(sortOf(kind), value);
}

std::expected<std::string, Refusal> writeValue(model::MemberKind kind, const base::Value& value) {
    return write(sortOf(kind), value);
}

}  // namespace telvar::store
