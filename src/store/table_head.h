// Looks at a table file's format and version before anything else is read, so that a file of another program or of a
// later release is refused as such and not for the first value that looks strange.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace telvar::store {

// What is wrong, as a phrase; nothing where the rest of the file can be read. Text that is no JSON passes, since
// reading the rest says more about it.
[[nodiscard]] std::optional<std::string> headProblem(std::string_view text);

}  // namespace telvar::store
