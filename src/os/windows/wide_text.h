// UTF-8 to and from the system's wide texts, paths of any length, and the system's text for an error code.
#pragma once

#include <string>
#include <string_view>

namespace telvar::os {

// What is not well-formed becomes U+FFFD.
[[nodiscard]] std::wstring wide(std::string_view text);
[[nodiscard]] std::string narrow(std::wstring_view text);

// As the file functions take it: a path near the traditional limit of 260 characters is made absolute and prefixed.
[[nodiscard]] std::wstring widePath(const std::string& path);

// Without the line end and full stop that the system adds.
[[nodiscard]] std::string errorText(unsigned long code);

}  // namespace telvar::os
