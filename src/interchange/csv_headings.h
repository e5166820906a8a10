// The first row of a CSV table: which column holds which cell of the grid and which key.
#pragma once

#include <array>
#include <cstddef>
#include <expected>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "editing/columns.h"
#include "interchange/csv_records.h"
#include "model/channel_key.h"

namespace telvar::interchange {

struct CsvHeadings {
    std::size_t count = 0;  // fields that every row has
    std::size_t channel = 0;
    std::array<std::optional<std::size_t>, editing::columnCount> cell;  // by grid column; 0 is unused
    std::array<std::optional<std::size_t>, model::channelKeyCount> key;
    std::vector<std::size_t> unnamed;  // columns without a heading, which spreadsheets leave behind: they stay empty
};

// Headings are spelled exactly, in any order, each once. "P25TalkgroupID" is the name of a cell and of a key: the
// first one is the cell, unless it is alone and there are no other cells. All cells must be there, or all keys. A
// refusal is a phrase without the line: "there is no column "Volume"".
[[nodiscard]] std::expected<CsvHeadings, std::string> readHeadings(const CsvRecord& record);

// The keys that a cell of the grid is made of when it is stored; column 1 to 26.
[[nodiscard]] std::span<const model::ChannelKey> keysOfCell(std::int16_t column) noexcept;

}  // namespace telvar::interchange
