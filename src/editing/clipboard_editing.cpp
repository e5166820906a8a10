#include "editing/clipboard_editing.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <utility>

#include "base/checked.h"
#include "base/text.h"
#include "editing/cell_storing.h"
#include "editing/columns.h"
#include "editing/validators.h"

namespace telvar::editing {

namespace {

constexpr char cellSeparator = '\t';
constexpr char rowSeparator = '\r';

// Rows beyond the table are failures of the record access; rows beyond 16 bits are failures here.
[[nodiscard]] std::int16_t rowAt(std::int16_t first, int offset) {
    if (!std::in_range<std::int16_t>(offset)) {
        throw base::ArithmeticFault::overflow();
    }
    return base::checkedAdd(first, static_cast<std::int16_t>(offset));
}

// Cuts a text at a separator, one part at a time: a clipboard may hold millions of parts, and a paste ends at the
// first that does not fit. A text has one part more than separators.
class Parts {
public:
    Parts(std::string_view text, char separator) noexcept : rest_(text), separator_(separator) {}

    [[nodiscard]] std::optional<std::string_view> next() {
        if (over_) {
            return std::nullopt;
        }
        const auto end = rest_.find(separator_);
        const auto part = rest_.substr(0, end);
        over_ = end == std::string_view::npos;
        if (!over_) {
            rest_.remove_prefix(end + 1);
        }
        return part;
    }

private:
    std::string_view rest_;
    char separator_;
    bool over_ = false;
};

}  // namespace

std::string blockText(const ui::Grid& grid, const ui::CellRange& block) {
    std::string text;
    for (int row = block.firstRow; row <= block.lastRow; ++row) {
        for (int column = block.firstColumn; column <= block.lastColumn; ++column) {
            text += grid.text(row, column);
            if (column < block.lastColumn) {
                text += cellSeparator;
            }
        }
        if (row < block.lastRow) {
            text += rowSeparator;
        }
    }
    return text;
}

std::string withUnifiedBreaks(std::string_view text) {
    return base::replacedAll(base::replacedAll(text, "\r\n", "\r"), "\n", "\r");
}

std::string placeOf(const RefusedCell& cell) {
    const bool known = cell.column >= 1 && cell.column <= lastColumn;
    const auto index = static_cast<std::size_t>(cell.column);
    return "channel " + std::to_string(cell.row) + ", " +
           (known ? std::string(columns[index].header) : "column " + std::to_string(cell.column));
}

void ClipboardEditing::CopySelection() {
    session_.trap("CopySelection", [&] {
        const auto block = recordExtent();
        grid_.refresh();
        session_.desktop().setClipboardText(blockText(grid_, block));
    });
}

bool ClipboardEditing::PasteToCells() {
    bool wrote = false;
    lastRefusal_.reset();
    session_.trap("PasteToCells", [&] {
        // Taken first: every re-rendered row moves the grid's current cell.
        const auto where = target();
        history_.UpdateBackUpFrequencyMemory();
        session_.throwIfClosed();
        const auto text = withUnifiedBreaks(session_.desktop().clipboardText().value_or(""));
        const bool oneLine = text.find(rowSeparator) == std::string::npos;
        Parts lines(text, rowSeparator);
        auto line = lines.next();
        for (int offset = 0;
             line && pasteLine(*line, rowAt(where.firstRow, offset), where.firstColumn, wrote) == CellOutcome::Stored;
             ++offset) {
            // One line alone goes into every selected row.
            if (!oneLine || offset + 1 >= where.rows) {
                line = lines.next();
            }
        }
    });
    return wrote;
}

bool ClipboardEditing::DeleteSelectedCells() {
    bool wrote = false;
    session_.trap("DeleteSelectedCells", [&] {
        const auto answer = session_.show({.text = "This will delete selected channel(s). Would you like to proceed?",
                                           .buttons = ui::Buttons::YesNo});
        const auto rows = recordExtent();
        if (answer == ui::Answer::Yes) {
            history_.UpdateBackUpFrequencyMemory();
            session_.throwIfClosed();
            disableChannels(rows, wrote);
        }
        session_.throwIfClosed();
        ClearSelection();
        grid_.setFocus();
    });
    return wrote;
}

void ClipboardEditing::ClearSelection() {
    session_.trap("ClearSelection", [&] {
        extentRows_ = 0;
        grid_.refresh();
    });
}

ui::CellRange ClipboardEditing::recordExtent() {
    const auto block = grid_.selection();
    extentRows_ = block.rowCount();
    return block;
}

// Only the row is normalised: a paste starts at the current column even when the selection reaches further left.
ClipboardEditing::Target ClipboardEditing::target() const {
    return {.firstRow = static_cast<std::int16_t>(std::min(grid_.row(), grid_.rowSel())),
            .firstColumn = static_cast<std::int16_t>(grid_.column()),
            .rows = std::abs(grid_.rowSel() - grid_.row()) + 1};
}

ClipboardEditing::CellOutcome ClipboardEditing::pasteLine(std::string_view line, std::int16_t row,
                                                          std::int16_t firstColumn, bool& wrote) {
    if (line.empty()) {
        return CellOutcome::Stored;
    }
    auto column = firstColumn;
    Parts cells(line, cellSeparator);
    while (const auto cell = cells.next()) {
        if (pasteCell(*cell, row, column, wrote) == CellOutcome::Refused) {
            return CellOutcome::Refused;
        }
        column = base::checkedAdd<std::int16_t>(column, 1);
    }
    return CellOutcome::Stored;
}

ClipboardEditing::CellOutcome ClipboardEditing::pasteCell(std::string_view text, std::int16_t row, std::int16_t column,
                                                          bool& wrote) {
    const auto store = session_.store();
    const CellContext context{.store = *store, .channel = row, .format = session_.format()};
    const auto cell = base::trimmed(text);
    const auto error = validateCell(context, column, cell);
    if (!error.empty()) {
        lastRefusal_ = {.row = row, .column = column};
        ++refusals_;
        session_.throwIfClosed();
        session_.show({.text = "Error during pasting data. " + error + ". Unable to continue."});
        // There may be no whole backup, or it may be of another table: the host may have replaced it behind the box.
        if (history_.undoAvailable()) {
            history_.UndoChanges();
        }
        return CellOutcome::Refused;
    }
    wrote = true;
    storeCell(context, column, cell);
    rows_.UpdateRowData(row);
    return CellOutcome::Stored;
}

void ClipboardEditing::disableChannels(const ui::CellRange& rows, bool& wrote) {
    for (int row = rows.firstRow; row <= rows.lastRow; ++row) {
        const auto channel = static_cast<std::int16_t>(row);
        const auto store = session_.store();
        wrote = true;
        store->channel(channel).put(model::ChannelKey::TxFreq, std::int16_t{0});
        session_.throwIfClosed();
        store->channel(channel).put(model::ChannelKey::RxFreq, std::int16_t{0});
        rows_.UpdateRowData(channel);
    }
}

}  // namespace telvar::editing
