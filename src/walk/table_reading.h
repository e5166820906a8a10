// Everything that a table holds and everything that the grid shows of it, as texts, to compare one moment with another.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "Tesslin.h"
#include "walk/walked_program.h"

namespace telvar::walk {

struct TableCopy {
    static constexpr int channels = 255;
    static constexpr int columns = 27;
    static constexpr int rows = channels + 1;

    // The channel keys in the order of the store's type library.
    std::vector<std::wstring> keys;
    // By channel - 1, then in the order of the keys.
    std::vector<std::vector<std::wstring>> values;
    // By row, then by column.
    std::vector<std::vector<std::wstring>> cells;

    [[nodiscard]] std::wstring& value(int channel, const std::wstring& key);
    [[nodiscard]] std::wstring& cell(int row, int column) {
        return cells[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
    }
};

// Throws com::ComFailure where the store or the grid does not answer.
[[nodiscard]] TableCopy copyTable(const WalkedProgram& program, IChannelGrid& grid);

// One sentence for each difference, none when the two are equal.
[[nodiscard]] std::vector<std::wstring> differences(const TableCopy& expected, const TableCopy& found);

// As the grid shows a frequency: in MHz with six decimals.
[[nodiscard]] std::wstring megahertz(long hertz);

}  // namespace telvar::walk
