// Access keys in captions: "&" stands before the key, "&&" is an ampersand.
#pragma once

#include <string_view>

namespace telvar::win32 {

// In any letter case.
[[nodiscard]] bool hasAccessKey(std::string_view caption, wchar_t character);

}  // namespace telvar::win32
