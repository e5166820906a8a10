// How one value stands in a table file, in both directions. Types are strict: what a key's kind does not allow is
// refused when it is read, and what could not be read back is refused when it is written.
#pragma once

#include <expected>
#include <string>

#include "base/value.h"
#include "model/channel_key.h"
#include "model/store_member.h"
#include "store/json_reader.h"

namespace telvar::store {

// What follows the key's name in a refusal: "must be a number of hertz, not text".
using Refusal = std::string;

// "must be a number of hertz, not " and what was found.
[[nodiscard]] Refusal refusalOf(model::KeyKind kind, const std::string& found);
[[nodiscard]] Refusal refusalOf(model::MemberKind kind, const std::string& found);

// Frequencies and steps become 32-bit integers where they are whole and fit, else doubles; tones become singles, whole
// numbers 32-bit integers.
[[nodiscard]] std::expected<base::Value, Refusal> readValue(model::KeyKind kind, const JsonScalar& json);
[[nodiscard]] std::expected<base::Value, Refusal> readValue(model::MemberKind kind, const JsonScalar& json);

// JSON text. A whole number is written without point or exponent, any other as the shortest text that reads back the
// same.
[[nodiscard]] std::expected<std::string, Refusal> writeValue(model::KeyKind kind, const base::Value& value);
[[nodiscard]] std::expected<std::string, Refusal> writeValue(model::MemberKind kind, const base::Value& value);

}  // namespace telvar::store
