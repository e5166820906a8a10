#include "ui/grid_layout.h"

#include <algorithm>

namespace telvar::ui {

int GridLayout::columnPixels(int column) const {
    const int twips = grid_->columnWidth(column);
    return twips > 0 ? std::max(pixelsOf(twips, metrics_.dpi), 1) : 0;
}

int GridLayout::columnLeft(int column) const {
    if (column == 0) {
        return 0;
    }
    int left = columnPixels(0);
    for (int before = leftColumn(); before < column; ++before) {
        left += columnPixels(before);
    }
    return left;
}

int GridLayout::rowTop(int row) const noexcept {
    return row == 0 ? 0 : metrics_.headerHeight + (row - topRow()) * metrics_.rowHeight;
}

Rect GridLayout::cellRect(Cell cell) const {
    const bool scrolledOut = (cell.row > 0 && cell.row < topRow()) || (cell.column > 0 && cell.column < leftColumn());
    if (scrolledOut || columnPixels(cell.column) == 0) {
        return {};
    }
    const int left = columnLeft(cell.column);
    const int top = rowTop(cell.row);
    return {left, top, left + columnPixels(cell.column), top + rowPixels(cell.row)};
}

Rect GridLayout::rangeRect(const CellRange& range) const {
    // Fixed cells stay in view, whatever is scrolled out between them and the rest of the block.
    const bool onlyFixedRow = range.lastRow < topRow();
    const bool onlyFixedColumn = range.lastColumn < leftColumn();
    if ((onlyFixedRow && range.firstRow > 0) || (onlyFixedColumn && range.firstColumn > 0)) {
        return {};
    }
    const Rect block{
        range.firstColumn == 0 ? 0 : columnLeft(std::max(range.firstColumn, leftColumn())),
        range.firstRow == 0 ? 0 : rowTop(std::max(range.firstRow, topRow())),
        onlyFixedColumn ? columnPixels(0) : columnLeft(range.lastColumn) + columnPixels(range.lastColumn),
        onlyFixedRow ? metrics_.headerHeight : rowTop(range.lastRow) + metrics_.rowHeight,
    };
    const Rect visible = block.intersected({0, 0, view_.width, view_.height});
    return visible.empty() ? Rect{} : visible;
}

Rect GridLayout::highlightRect() const {
    const int row = grid_->row();
    return row == 0 ? Rect{} : rangeRect({row, 0, row, grid_->columns() - 1});
}

std::optional<Cell> GridLayout::hit(Point point) const {
    if (!Rect{0, 0, view_.width, view_.height}.contains(point)) {
        return std::nullopt;
    }
    Cell cell;
    if (point.y >= metrics_.headerHeight) {
        cell.row = topRow() + (point.y - metrics_.headerHeight) / metrics_.rowHeight;
        if (cell.row >= grid_->rows()) {
            return std::nullopt;
        }
    }
    int right = columnPixels(0);
    if (point.x < right) {
        return cell;
    }
    for (cell.column = leftColumn(); cell.column < grid_->columns(); ++cell.column) {
        right += columnPixels(cell.column);
        if (point.x < right) {
            return cell;
        }
    }
    return std::nullopt;
}

int GridLayout::nearestRow(int y) const noexcept {
    if (y < metrics_.headerHeight) {
        return std::max(topRow() - 1, 1);
    }
    if (y >= view_.height) {
        return std::min(topRow() + fullRows(), grid_->rows() - 1);
    }
    return std::min(topRow() + (y - metrics_.headerHeight) / metrics_.rowHeight, grid_->rows() - 1);
}

int GridLayout::nearestColumn(int x) const {
    int right = columnPixels(0);
    if (x < right) {
        return columnBefore(leftColumn());
    }
    if (x >= view_.width) {
        return columnAfter(lastFullColumn());
    }
    for (int column = leftColumn(); column < grid_->columns(); ++column) {
        right += columnPixels(column);
        if (x < right) {
            return column;
        }
    }
    return lastShownColumn();
}

Cell GridLayout::nearest(Point point) const { return {nearestRow(point.y), nearestColumn(point.x)}; }

int GridLayout::topRow() const noexcept { return std::min(grid_->topRow(), lastTopRow()); }

int GridLayout::leftColumn() const {
    const int wanted = grid_->leftColumn();
    const int shown = columnPixels(wanted) > 0 ? wanted : columnAfter(wanted);
    return std::min(shown, lastLeftColumn());
}

int GridLayout::lastTopRow() const noexcept { return std::max(grid_->rows() - fullRows(), 1); }

int GridLayout::lastLeftColumn() const {
    int room = view_.width - columnPixels(0);
    int left = lastShownColumn();
    for (int column = left; column >= 1; --column) {
        const int width = columnPixels(column);
        room -= width;
        if (room < 0) {
            break;
        }
        if (width > 0) {
            left = column;
        }
    }
    return left;
}

int GridLayout::fullRows() const noexcept {
    return std::max((view_.height - metrics_.headerHeight) / metrics_.rowHeight, 1);
}

int GridLayout::lastVisibleRow() const noexcept {
    const int room = std::max(view_.height - metrics_.headerHeight, 1);
    const int visible = (room + metrics_.rowHeight - 1) / metrics_.rowHeight;
    return std::min(topRow() + visible - 1, grid_->rows() - 1);
}

int GridLayout::lastVisibleColumn() const {
    int right = columnPixels(0);
    int last = leftColumn();
    for (int column = last; column < grid_->columns() && right < view_.width; ++column) {
        const int width = columnPixels(column);
        right += width;
        if (width > 0) {
            last = column;
        }
    }
    return last;
}

int GridLayout::lastFullColumn() const {
    int right = columnPixels(0);
    int last = leftColumn();
    for (int column = last; column < grid_->columns(); ++column) {
        const int width = columnPixels(column);
        right += width;
        if (right > view_.width) {
            break;
        }
        if (width > 0) {
            last = column;
        }
    }
    return last;
}

int GridLayout::topRowToShow(int row) const noexcept {
    if (row == 0) {
        return topRow();
    }
    const int held = std::min(topRow(), row);
    return std::clamp(std::max(held, row - fullRows() + 1), 1, lastTopRow());
}

int GridLayout::leftColumnToShow(int column) const {
    const int left = leftColumn();
    if (column == 0 || columnPixels(column) == 0) {
        return left;
    }
    if (column < left) {
        return column;
    }
    // The left-most column from which everything up to the wanted one fits.
    int room = view_.width - columnPixels(0) - columnPixels(column);
    int first = column;
    for (int before = columnBefore(column); before >= left && before < first; before = columnBefore(before)) {
        room -= columnPixels(before);
        if (room < 0) {
            break;
        }
        first = before;
    }
    return first;
}

int GridLayout::columnAfter(int column) const {
    for (int next = column + 1; next < grid_->columns(); ++next) {
        if (grid_->columnWidth(next) > 0) {
            return next;
        }
    }
    return column;
}

int GridLayout::columnBefore(int column) const {
    for (int next = column - 1; next >= 1; --next) {
        if (grid_->columnWidth(next) > 0) {
            return next;
        }
    }
    return column;
}

int GridLayout::firstShownColumn() const {
    const int first = columnAfter(0);
    return first == 0 ? 1 : first;
}

int GridLayout::lastShownColumn() const {
    const int last = columnBefore(grid_->columns());
    return last == grid_->columns() ? 1 : last;
}

}  // namespace telvar::ui
