// What is printed: the table as the control shows it at this moment.
#pragma once

#include <string>

#include "Tesslin.h"
#include "desk/printed_table.h"

namespace telvar::host {

// Every channel with the columns that are visible; title and date stay empty. Throws com::ComFailure.
[[nodiscard]] desk::PrintedTable readShownTable(IChannelGrid& grid);

// The present date and time, as the user writes them.
[[nodiscard]] std::wstring presentDateAndTime();

}  // namespace telvar::host
