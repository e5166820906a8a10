#include "ui/grid.h"

#include <algorithm>
#include <utility>

#include "base/failure.h"

namespace telvar::ui {

namespace {

[[nodiscard]] CellRange between(Cell one, Cell other) noexcept {
    return {std::min(one.row, other.row), std::min(one.column, other.column), std::max(one.row, other.row),
            std::max(one.column, other.column)};
}

void checkIndex(int index, int count) {
    if (index < 0 || index >= count) {
        throw base::SubscriptFailure();
    }
}

}  // namespace

Grid::Grid(std::string name, int rows, int columns)
    : Widget(std::move(name)),
      rows_(rows),
      columns_(columns),
      cells_(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns)),
      widths_(static_cast<std::size_t>(columns), defaultColumnWidth) {}

std::size_t Grid::at(int row, int column) const {
    checkIndex(row, rows_);
    checkIndex(column, columns_);
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) + static_cast<std::size_t>(column);
}

const std::string& Grid::text(int row, int column) const { return cells_[at(row, column)].text; }

void Grid::setText(int row, int column, std::string_view text) {
    std::string& present = cell(row, column).text;
    if (present != text) {
        present = text;
        damage({row, column, row, column});
    }
}

Colour Grid::cellBackColor(int row, int column) const { return cells_[at(row, column)].backColor; }

void Grid::setCellBackColor(int row, int column, Colour colour) {
    if (std::exchange(cell(row, column).backColor, colour) != colour) {
        damage({row, column, row, column});
    }
}

Alignment Grid::cellAlignment(int row, int column) const { return cells_[at(row, column)].alignment; }

void Grid::setCellAlignment(int row, int column, Alignment alignment) {
    if (std::exchange(cell(row, column).alignment, alignment) != alignment) {
        damage({row, column, row, column});
    }
}

int Grid::columnWidth(int column) const {
    checkIndex(column, columns_);
    return widths_[static_cast<std::size_t>(column)];
}

void Grid::setColumnWidth(int column, int twips) {
    checkIndex(column, columns_);
    if (std::exchange(widths_[static_cast<std::size_t>(column)], std::max(twips, 0)) != std::max(twips, 0)) {
        damageLayout();
    }
}

void Grid::setColumnAlignment(int column, Alignment alignment) {
    checkIndex(column, columns_);
    for (int row = 1; row < rows_; ++row) {
        setCellAlignment(row, column, alignment);
    }
}

void Grid::setRow(int row) { setCurrent({row, current_.column}); }

void Grid::setColumn(int column) { setCurrent({current_.row, column}); }

void Grid::setCurrent(Cell cell) { select(cell, cell); }

void Grid::setRowSel(int row) { select(current_, {row, end_.column}); }

void Grid::setColumnSel(int column) { select(current_, {end_.row, column}); }

void Grid::select(Cell current, Cell end) {
    checkIndex(current.row, rows_);
    checkIndex(current.column, columns_);
    checkIndex(end.row, rows_);
    checkIndex(end.column, columns_);
    moveTo(current, end);
}

CellRange Grid::selection() const noexcept { return between(current_, end_); }

void Grid::moveTo(Cell current, Cell end) {
    current_ = current;
    end_ = end;
    if (redraw_) {
        tellSelection();
    }
}

void Grid::tellSelection() {
    if (current_ == currentTold_ && end_ == endTold_) {
        return;
    }
    const CellRange before = between(currentTold_, endTold_);
    currentTold_ = current_;
    endTold_ = end_;
    damage(before);
    damage(selection());
    if (redraw_) {
        SelectionChanged();
    }
}

void Grid::setTopRow(int row) {
    const int held = std::clamp(row, 1, std::max(rows_ - 1, 1));
    if (std::exchange(topRow_, held) != held) {
        damageLayout();
    }
}

void Grid::setLeftColumn(int column) {
    const int held = std::clamp(column, 1, std::max(columns_ - 1, 1));
    if (std::exchange(leftColumn_, held) != held) {
        damageLayout();
    }
}

void Grid::setDisplay(const GridDisplay& display) {
    if (std::exchange(display_, display) != display) {
        refresh();
    }
}

void Grid::setRedraw(bool redraw) {
    if (redraw_ == redraw) {
        return;
    }
    if (!redraw) {
        redraw_ = false;
        return;
    }
    const bool moved = current_ != currentTold_ || end_ != endTold_;
    tellSelection();
    redraw_ = true;
    tellDamage();
    if (moved) {
        SelectionChanged();
    }
}

void Grid::refresh() {
    if (!redraw_) {
        damage_.everything = true;
    } else {
        shown(Aspect::Everything);
    }
}

void Grid::setHighlightShown(bool shown) {
    if (highlightShown_ == shown) {
        return;
    }
    highlightShown_ = shown;
    if (!redraw_) {
        damage_.highlight = true;
    } else if (gridPeer() != nullptr) {
        gridPeer()->highlightChanged();
    }
}

std::optional<Rect> Grid::currentRowOnScreen() const {
    return gridPeer() != nullptr ? gridPeer()->currentRowOnScreen() : std::nullopt;
}

void Grid::damage(const CellRange& cells) {
    if (redraw_) {
        if (gridPeer() != nullptr) {
            gridPeer()->cellsChanged(cells);
        }
        return;
    }
    CellRange& range = damage_.range;
    range = damage_.cells
                ? CellRange{std::min(range.firstRow, cells.firstRow), std::min(range.firstColumn, cells.firstColumn),
                            std::max(range.lastRow, cells.lastRow), std::max(range.lastColumn, cells.lastColumn)}
                : cells;
    damage_.cells = true;
}

void Grid::damageLayout() {
    if (!redraw_) {
        damage_.layout = true;
    } else if (gridPeer() != nullptr) {
        gridPeer()->layoutChanged();
    }
}

void Grid::tellDamage() {
    const Damage told = std::exchange(damage_, {});
    if (gridPeer() == nullptr) {
        return;
    }
    if (told.everything) {
        shown(Aspect::Everything);
        return;
    }
    if (told.layout) {
        gridPeer()->layoutChanged();
    }
    if (told.cells) {
        gridPeer()->cellsChanged(told.range);
    }
    if (told.highlight) {
        gridPeer()->highlightChanged();
    }
}

}  // namespace telvar::ui
