// A channel table as it goes to paper: the visible columns' texts, in UTF-8. The first column holds the channel
// numbers.
#pragma once

#include <string>
#include <vector>

namespace telvar::desk {

struct Column {
    std::string header;
    int width = 0;  // that the control shows it with, in twips
    bool centred = false;
};

struct Row {
    bool inUse = true;               // the channel has a frequency
    std::vector<std::string> cells;  // one for each column
};

struct PrintedTable {
    std::string title;
    std::string made;  // date and time, as the reader is shown them
    std::vector<Column> columns;
    std::vector<Row> rows;
};

inline void keepRowsInUse(PrintedTable& table) {
    std::erase_if(table.rows, [](const Row& row) { return !row.inUse; });
}

}  // namespace telvar::desk
