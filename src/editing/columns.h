// The column table: one row for every column of the channel grid, which drives the grid, its clipboard, exchange
// formats, the command line and the published enumeration. Also the order in which a channel's row is rendered.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "base/number_text.h"
#include "model/data_store.h"

namespace telvar::editing {

// Column 0 holds the channel number; the channel settings are columns 1 to 26, of which 9 to 26 are hidden at first.
inline constexpr std::size_t columnCount = 27;
inline constexpr std::int16_t lastColumn = 26;
inline constexpr std::int16_t firstHiddenColumn = 9;
// From here on, the columns of a radio with a P25 board.
inline constexpr std::int16_t firstP25Column = 23;

// A cell that has no value: a frequency of 0, what the radio does not have, and every cell of an unconfigured channel.
inline constexpr std::string_view noValue = "X";
inline constexpr std::string_view invalidDcs = "Invalid";

// The channel whose cells are rendered, validated or stored. Nothing is kept between two cells: every value is asked of
// the store when it is needed.
struct CellContext {
    model::DataStore& store;
    std::int16_t channel = 0;  // 1 to 255
    base::NumberFormat format{};
};

struct Column {
    std::int16_t number;
    std::string_view header;
    int width;                         // twips, as the grid is set up; 0 hides the column
    int fullAccessWidth;               // twips, where the access level shows it
    std::string_view enumerationName;  // member of FlexGridColumnNo; empty for the columns that it does not name
    std::string_view errorName;        // as a refused value names the column
    // The cell of a configured channel. Fails as the store fails, and with base::ConversionFailure where a stored value
    // is not of the kind that the column shows.
    std::string (*render)(const CellContext&);
    // An error text, empty when the text may be stored; see validators.h. Null for column 0.
    std::string (*validate)(const CellContext&, std::string_view text);
    // Writes an accepted text; see cell_storing.h. Null for column 0.
    void (*store)(const CellContext&, std::string_view text);
};

extern const std::array<Column, columnCount> columns;

// 1 to 26 as a row is rendered.
extern const std::array<std::int16_t, columnCount - 1> renderOrder;

// Takes one finished cell.
using CellSink = std::function<void(std::int16_t column, const std::string& text)>;

// Renders columns 1 to 26 of one channel. Each cell reaches the sink before the next one is read, so that a failure
// leaves the cells before it written. An unconfigured channel has "X" in all of them, in ascending order, and nothing
// else of it is read.
void renderRow(const CellContext& context, const CellSink& sink);

}  // namespace telvar::editing
