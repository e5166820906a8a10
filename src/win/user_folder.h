// The folder in which the programs of this product keep what they remember for a user.
#pragma once

#include <string>

namespace telvar::win {

// Created if need be; without a separator at its end. Empty where the user has no folder for such things. Where it
// cannot be created, using it tells why.
[[nodiscard]] std::wstring userFolder();

}  // namespace telvar::win
