// The release, as `telvar --version` tells it; CMakeLists.txt has the same.
#pragma once

#include <string_view>

namespace telvar::cli {

inline constexpr std::string_view version = "1.0.0";

}  // namespace telvar::cli
