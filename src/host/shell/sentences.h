// What the user is told of a failure.
#pragma once

#include <exception>
#include <string>

namespace telvar::host {

// One sentence with its final full stop. Failures of other components carry their own description.
[[nodiscard]] std::wstring sentenceFor(const std::exception& failure);

}  // namespace telvar::host
