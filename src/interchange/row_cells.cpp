#include "interchange/row_cells.h"

namespace telvar::interchange {

RowCells rowCells(model::DataStore& store, std::int16_t channel, const base::NumberFormat& format) {
    RowCells cells;
    cells[0] = std::to_string(channel);
    editing::renderRow(
        {.store = store, .channel = channel, .format = format},
        [&](std::int16_t column, const std::string& text) { cells.at(static_cast<std::size_t>(column)) = text; });
    return cells;
}

}  // namespace telvar::interchange
