// One row of the grid as text, without a grid.
#pragma once

#include <array>
#include <string>

#include "editing/columns.h"

namespace telvar::interchange {

using RowCells = std::array<std::string, editing::columnCount>;

// Cell 0 is the channel number, the others are what the control shows. Fails as editing::renderRow does.
[[nodiscard]] RowCells rowCells(model::DataStore& store, std::int16_t channel, const base::NumberFormat& format);

}  // namespace telvar::interchange
