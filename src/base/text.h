// Small text helpers with this system's meanings: "trimmed" takes blanks only (a tab stays), "upper-cased" is about
// ASCII letters, and texts are UTF-8.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace telvar::base {

[[nodiscard]] std::string_view trimmed(std::string_view text) noexcept;
[[nodiscard]] std::string upperCased(std::string_view text);
[[nodiscard]] bool equalIgnoringCase(std::string_view left, std::string_view right) noexcept;

// Every occurrence; an empty `what` changes nothing.
[[nodiscard]] std::string replacedAll(std::string_view text, std::string_view what, std::string_view with);

// The parts between separators; an empty text has one empty part.
[[nodiscard]] std::vector<std::string_view> splitAt(std::string_view text, char separator);

}  // namespace telvar::base
