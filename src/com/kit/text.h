// UTF-8 to and from UTF-16. What is not well-formed (a lone surrogate, a broken sequence) becomes U+FFFD; embedded NULs
// stay.
#pragma once

#include <string>
#include <string_view>

namespace telvar::com {

[[nodiscard]] std::wstring wide(std::string_view text);
[[nodiscard]] std::string narrow(std::wstring_view text);

}  // namespace telvar::com
