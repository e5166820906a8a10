// Asks for the number of a channel.
#pragma once

#include <windows.h>

#include <optional>
#include <string_view>

namespace telvar::host {

// 1 to 255, or nothing when the user cancels. `suggested` stands in the field first.
[[nodiscard]] std::optional<int> askChannel(HWND owner, int suggested);

// A channel number in digits, with blanks around it at most.
[[nodiscard]] std::optional<int> readChannel(std::string_view text) noexcept;

}  // namespace telvar::host
