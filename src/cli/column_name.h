// A column of the grid as people name it.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace telvar::cli {

// By heading, in any letter case, or by number. Any 16-bit number is answered, whether or not there is such a column;
// nothing for any other text.
[[nodiscard]] std::optional<std::int16_t> columnNamed(std::string_view text);

}  // namespace telvar::cli
