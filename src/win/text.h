// UTF-8 to and from UTF-16. What is not well-formed (a lone surrogate, a broken sequence) becomes U+FFFD; embedded NULs
// stay.
#pragma once

#include <string>
#include <string_view>

namespace telvar::win {

// Throw base::Failure for a text of more than a thousand million characters, which the system's functions do not count.
[[nodiscard]] std::wstring wide(std::string_view text);
[[nodiscard]] std::string narrow(std::wstring_view text);

}  // namespace telvar::win
