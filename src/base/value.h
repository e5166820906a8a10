// One value as a data store keeps it. The alternatives are the automation types that channel tables use; whoever writes
// a value chooses its type, and every reader takes any number (see conversion.h).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace telvar::base {

// No value was ever put. Reads as 0, False and the empty text.
struct Empty {
    bool operator==(const Empty&) const = default;
};

// Something that a foreign store answered and that is no value: Null, an object, an array, an error code.
// Every conversion of it fails as "Type mismatch".
struct Unusable {
    bool operator==(const Unusable&) const = default;
};

// Build text values from std::string, never from a character pointer, and small integers as std::int16_t or
// std::int32_t.
using Value = std::variant<Empty, bool, std::int16_t, std::int32_t, std::int64_t, float, double, std::string, Unusable>;

[[nodiscard]] inline Value textValue(std::string_view text) { return Value{std::string{text}}; }

}  // namespace telvar::base
