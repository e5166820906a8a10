// A table as one HTML page that needs nothing besides itself, on the screen and on paper.
#pragma once

#include <string>

#include "host/print/table.h"

namespace telvar::host::print {

[[nodiscard]] std::string htmlOf(const Table& table);

}  // namespace telvar::host::print
