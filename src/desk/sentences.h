// What the user is told of a failure.
#pragma once

#include <exception>
#include <string>

namespace telvar::desk {

// One sentence with its final full stop. Failures of other components carry their own description.
[[nodiscard]] std::string sentenceFor(const std::exception& failure);

}  // namespace telvar::desk
