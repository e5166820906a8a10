// Where the cells of a grid lie: columns and rows to rectangles, hit test, what is visible, how far it can scroll.
// Holds no state of its own; it is made from a grid, the size of the view and the measures of the font whenever one of
// them changes.
#pragma once

#include <optional>

#include "ui/grid.h"

namespace telvar::ui {

// In pixels.
struct GridMetrics {
    int dpi = standardDpi;
    int rowHeight = 17;
    int headerHeight = 32;  // two lines of the header's font: at 96 dpi the narrowest header does not fit on one
    bool operator==(const GridMetrics&) const = default;
};

class GridLayout {
public:
    GridLayout(const Grid& grid, Size view, const GridMetrics& metrics) noexcept
        : grid_(&grid), view_(view), metrics_(metrics) {}

    [[nodiscard]] const GridMetrics& metrics() const noexcept { return metrics_; }
    [[nodiscard]] Size view() const noexcept { return view_; }

    [[nodiscard]] int columnPixels(int column) const;
    [[nodiscard]] int rowPixels(int row) const noexcept {
        return row == 0 ? metrics_.headerHeight : metrics_.rowHeight;
    }

    // Empty for a cell that is scrolled out above or left, or hidden; may reach beyond the view at right and bottom.
    [[nodiscard]] Rect cellRect(Cell cell) const;
    // The part of a block that lies inside the view.
    [[nodiscard]] Rect rangeRect(const CellRange& range) const;
    // The frame around the visible part of the current row, clipped to the view; empty when it is scrolled out.
    [[nodiscard]] Rect highlightRect() const;

    // Nothing where the point hits no cell.
    [[nodiscard]] std::optional<Cell> hit(Point point) const;
    // For dragging: the cell nearest to a point inside or outside the view, fixed cells excluded. A point over the
    // fixed cells or outside the view answers the next row or column that is scrolled out on that side, so that
    // repeated calls scroll on.
    [[nodiscard]] Cell nearest(Point point) const;

    // First rows and columns in force, held to the last page.
    [[nodiscard]] int topRow() const noexcept;
    [[nodiscard]] int leftColumn() const;
    [[nodiscard]] int lastTopRow() const noexcept;
    [[nodiscard]] int lastLeftColumn() const;
    // Rows that fit wholly, at least 1.
    [[nodiscard]] int fullRows() const noexcept;
    // Last row or column of which any pixel is inside the view.
    [[nodiscard]] int lastVisibleRow() const noexcept;
    [[nodiscard]] int lastVisibleColumn() const;
    [[nodiscard]] int lastFullColumn() const;

    // The top row and left column that bring a cell into view with the least scrolling.
    [[nodiscard]] int topRowToShow(int row) const noexcept;
    [[nodiscard]] int leftColumnToShow(int column) const;

    // The neighbouring column that is not hidden; `column` itself at the end.
    [[nodiscard]] int columnAfter(int column) const;
    [[nodiscard]] int columnBefore(int column) const;
    [[nodiscard]] int firstShownColumn() const;
    [[nodiscard]] int lastShownColumn() const;

private:
    [[nodiscard]] int columnLeft(int column) const;
    [[nodiscard]] int rowTop(int row) const noexcept;
    [[nodiscard]] int nearestRow(int y) const noexcept;
    [[nodiscard]] int nearestColumn(int x) const;

    const Grid* grid_;
    Size view_;
    GridMetrics metrics_;
};

}  // namespace telvar::ui
