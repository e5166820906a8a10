// The value of a key or of a radio-wide member as text: what CSV holds, and what people type on a command line. Numbers
// use the given decimal separator, Booleans are "true" and "false", codes and texts stand as they are.
#pragma once

#include <expected>
#include <string>
#include <string_view>

#include "base/number_text.h"
#include "base/value.h"
#include "model/channel_key.h"
#include "model/store_member.h"

namespace telvar::interchange {

// What follows the key's name in a refusal: "must be a number of hertz, not "abc"".
using Refusal = std::string;

// Blanks around a number or a Boolean are ignored; Booleans may also be yes, no, 1, 0 and -1, in any letter case. A
// code must be four hexadecimal digits. The value has the type that a table file gives it.
[[nodiscard]] std::expected<base::Value, Refusal> readKeyText(model::KeyKind kind, std::string_view text,
                                                              const base::NumberFormat& format);
[[nodiscard]] std::expected<base::Value, Refusal> readMemberText(model::MemberKind kind, std::string_view text,
                                                                 const base::NumberFormat& format);

// Exact: read back it is the same number. Refused like a value that a table file could not hold.
[[nodiscard]] std::expected<std::string, Refusal> keyText(model::KeyKind kind, const base::Value& value,
                                                          const base::NumberFormat& format);

// The beginning of a text that somebody gave, in quotation marks: enough to find it again.
[[nodiscard]] std::string quotedStart(std::string_view text);

}  // namespace telvar::interchange
