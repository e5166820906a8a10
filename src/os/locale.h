// How numbers are written where the user lives.
#pragma once

#include <optional>
#include <string>

#include "base/number_text.h"

namespace telvar::os {

// The user's own locale; "." where it has no separator of one ASCII character.
[[nodiscard]] base::NumberFormat userNumberFormat();

// A locale by its system name ("de_DE" or "de-DE"); nothing where this machine does not have it.
[[nodiscard]] std::optional<base::NumberFormat> numberFormatOf(const std::string& locale);

}  // namespace telvar::os
