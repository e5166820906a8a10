// The commands' results as JSON: one object a line, members in the order in which they are added, a blank behind every
// comma and colon.
#pragma once

#include <concepts>
#include <optional>
#include <ranges>
#include <string>
#include <string_view>

#include "store/json_text.h"

namespace telvar::cli {

class Json;

[[nodiscard]] inline std::string jsonOf(std::string_view text) { return store::jsonQuoted(text); }
[[nodiscard]] inline std::string jsonOf(bool value) { return value ? "true" : "false"; }
[[nodiscard]] std::string jsonOf(const Json& object);
template <std::integral Number>
    requires(!std::same_as<Number, bool>)
[[nodiscard]] std::string jsonOf(Number number) {
    return std::to_string(number);
}
template <class Value>
[[nodiscard]] std::string jsonOf(const std::optional<Value>& value) {
    return value ? jsonOf(*value) : "null";
}
// A list of whatever stands in it.
template <std::ranges::input_range Range>
    requires(!std::convertible_to<Range, std::string_view>)
[[nodiscard]] std::string jsonOf(const Range& range) {
    std::string text;
    for (const auto& each : range) {
        text += (text.empty() ? "" : ", ") + jsonOf(each);
    }
    return "[" + text + "]";
}

// One object.
class Json {
public:
    template <class Value>
    Json& add(std::string_view name, const Value& value) {
        members_ += (members_.empty() ? "" : ", ") + store::jsonQuoted(name) + ": " + textOf(value);
        return *this;
    }
    // The members of another one.
    Json& add(const Json& other) {
        members_ += (members_.empty() || other.members_.empty() ? "" : ", ") + other.members_;
        return *this;
    }

    [[nodiscard]] std::string text() const { return "{" + members_ + "}"; }
    // For a stream of results.
    [[nodiscard]] std::string line() const { return text() + "\n"; }

private:
    template <class Value>
    [[nodiscard]] static std::string textOf(const Value& value) {
        if constexpr (std::convertible_to<Value, std::string_view>) {
            return jsonOf(std::string_view(value));
        } else {
            return jsonOf(value);
        }
    }

    std::string members_;
};

inline std::string jsonOf(const Json& object) { return object.text(); }

}  // namespace telvar::cli
