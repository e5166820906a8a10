// What is printed: the table as the control shows it at this moment.
#pragma once

#include "Tesslin.h"
#include "desk/printed_table.h"

namespace telvar::host {

// Every channel with the columns that are visible; title and date stay empty. Throws com::ComFailure.
[[nodiscard]] desk::PrintedTable readShownTable(IChannelGrid& grid);

}  // namespace telvar::host
