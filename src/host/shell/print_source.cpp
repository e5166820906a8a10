#include "host/shell/print_source.h"

#include <windows.h>

#include <vector>

#include "com/kit/bstr.h"
#include "com/kit/failure.h"

namespace telvar::host {

namespace {

constexpr long transmitColumn = 1;
constexpr long receiveColumn = 2;

std::string cellOf(IChannelGrid& grid, long row, long column) {
    com::Bstr text;
    com::checkCall(grid.get_Cell(row, column, text.put()));
    return text.text();
}

// A frequency of zero, and that of a channel without any, which shows no digit at all.
bool isNothing(const std::string& frequency) { return frequency.find_first_of("123456789") == std::string::npos; }

desk::Column columnOf(IChannelGrid& grid, long column) {
    com::Bstr header;
    long twips = 0;
    com::checkCall(grid.get_Header(column, header.put()));
    com::checkCall(grid.get_ColumnWidth(column, &twips));
    // The corner of the grid has no text. The control centres what is hidden below full access, and only that.
    return {.header = column == 0 ? "Channel" : header.text(),
            .width = static_cast<int>(twips),
            .centred = column >= TXPowerCol};
}

}  // namespace

desk::PrintedTable readShownTable(IChannelGrid& grid) {
    long rows = 0;
    long columns = 0;
    com::checkCall(grid.get_RowCount(&rows));
    com::checkCall(grid.get_ColumnCount(&columns));
    desk::PrintedTable table;
    std::vector<long> shown;
    for (long column = 0; column < columns; ++column) {
        VARIANT_BOOL visible = VARIANT_FALSE;
        com::checkCall(grid.get_ColumnVisible(column, &visible));
        if (column == 0 || visible != VARIANT_FALSE) {
            shown.push_back(column);
            table.columns.push_back(columnOf(grid, column));
        }
    }
    for (long row = 1; row < rows; ++row) {
        desk::Row& printed = table.rows.emplace_back();
        printed.inUse = !isNothing(cellOf(grid, row, transmitColumn)) || !isNothing(cellOf(grid, row, receiveColumn));
        for (const long column : shown) {
            printed.cells.push_back(cellOf(grid, row, column));
        }
    }
    return table;
}

}  // namespace telvar::host
