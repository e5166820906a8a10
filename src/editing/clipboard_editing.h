// Copy, paste and delete in the grid: the grid's selection is what they work on, the clipboard's plain text is what
// they exchange. Each traps its failures and tells them under its name; the table stays as far as it got.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "editing/grid_rows.h"
#include "editing/undo.h"

namespace telvar::editing {

// A selected block as text: cells joined by tabs, rows by a carriage return alone, nothing behind the last.
[[nodiscard]] std::string blockText(const ui::Grid& grid, const ui::CellRange& block);

// A clipboard text with a carriage return alone for every line break, whichever it has.
[[nodiscard]] std::string withUnifiedBreaks(std::string_view text);

// A cell whose text a paste refused.
struct RefusedCell {
    std::int16_t row = 0;  // the channel
    std::int16_t column = 0;
    bool operator==(const RefusedCell&) const = default;
};

// For people: "channel 12, Tx Subtone", by the column's heading, or its number where there is no such column.
[[nodiscard]] std::string placeOf(const RefusedCell& cell);

class ClipboardEditing {
public:
    ClipboardEditing(GridRows& rows, UndoHistory& history) noexcept
        : rows_(rows), session_(rows.session()), grid_(rows.grid()), history_(history) {}

    void CopySelection();
    // Answers whether it wrote anything, a refused and rolled-back paste included. A refused one whose backup failed
    // stays as far as it got.
    bool PasteToCells();
    // Answers whether it wrote anything.
    bool DeleteSelectedCells();
    void ClearSelection();

    // Where the last paste was refused, known before the box that tells it; nothing while it was not.
    [[nodiscard]] const std::optional<RefusedCell>& lastRefusal() const noexcept { return lastRefusal_; }
    // Pastes that were refused so far.
    [[nodiscard]] int refusals() const noexcept { return refusals_; }

    // Rows of the last recorded extent, 0 after ClearSelection.
    [[nodiscard]] int extentRows() const noexcept { return extentRows_; }

private:
    struct Target {
        std::int16_t firstRow = 1;
        std::int16_t firstColumn = 1;
        int rows = 1;  // covered by the selection
    };

    enum class CellOutcome : std::uint8_t { Stored, Refused };

    [[nodiscard]] ui::CellRange recordExtent();
    [[nodiscard]] Target target() const;
    CellOutcome pasteLine(std::string_view line, std::int16_t row, std::int16_t firstColumn, bool& wrote);
    CellOutcome pasteCell(std::string_view text, std::int16_t row, std::int16_t column, bool& wrote);
    void disableChannels(const ui::CellRange& rows, bool& wrote);

    GridRows& rows_;
    session::Session& session_;
    ui::Grid& grid_;
    UndoHistory& history_;
    std::optional<RefusedCell> lastRefusal_;
    int refusals_ = 0;
    int extentRows_ = 0;
};

}  // namespace telvar::editing
