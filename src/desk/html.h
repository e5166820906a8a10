// A table as one HTML page that needs nothing besides itself, on the screen and on paper.
#pragma once

#include <string>

#include "desk/printed_table.h"

namespace telvar::desk {

[[nodiscard]] std::string htmlOf(const PrintedTable& table);

}  // namespace telvar::desk
