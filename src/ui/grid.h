// The contents and the selection of a grid: cell texts and colours, column widths, the current cell, the selection's far
// end, the first row and column shown, and the redraw switch. Where cells lie on the screen is GridLayout's business, what
// mouse and keys do is GridInput's.
//
// Making a row or column current collapses the selection to the current cell. Rows and columns outside the grid are a
// base::SubscriptFailure.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "ui/widget.h"

namespace telvar::ui {

struct Cell {
    int row = 0;
    int column = 0;
    bool operator==(const Cell&) const = default;
};

// A block of cells, both ends included.
struct CellRange {
    int firstRow = 0;
    int firstColumn = 0;
    int lastRow = 0;
    int lastColumn = 0;
    bool operator==(const CellRange&) const = default;
    [[nodiscard]] bool contains(Cell cell) const noexcept {
        return cell.row >= firstRow && cell.row <= lastRow && cell.column >= firstColumn && cell.column <= lastColumn;
    }
    [[nodiscard]] int rowCount() const noexcept { return lastRow - firstRow + 1; }
    [[nodiscard]] int columnCount() const noexcept { return lastColumn - firstColumn + 1; }
};

// Codes as the published interface has them.
enum class Alignment : std::uint8_t { LeftCentre = 1, Centre = 4, RightCentre = 7 };

class GridPeer : public WidgetPeer {
public:
    // Texts, colours or selection of these cells changed; called once for a whole refresh.
    virtual void cellsChanged(const CellRange& cells) noexcept = 0;
    // Column widths, the first row or column shown, or the highlight frame changed.
    virtual void layoutChanged() noexcept = 0;
    virtual void highlightChanged() noexcept = 0;
};

class Grid : public Widget {
public:
    // Row 0 and column 0 are fixed.
    Grid(std::string name, int rows, int columns);

    [[nodiscard]] int rows() const noexcept { return rows_; }
    [[nodiscard]] int columns() const noexcept { return columns_; }

    [[nodiscard]] const std::string& text(int row, int column) const;
    // Compared before it is written; an equal text changes and repaints nothing.
    void setText(int row, int column, std::string_view text);

    // 0 means never set: the cell has the default colour.
    [[nodiscard]] Colour cellBackColor(int row, int column) const;
    void setCellBackColor(int row, int column, Colour colour);
    [[nodiscard]] Alignment cellAlignment(int row, int column) const;
    void setCellAlignment(int row, int column, Alignment alignment);

    [[nodiscard]] int columnWidth(int column) const;  // twips; 0 hides the column
    void setColumnWidth(int column, int twips);
    void setColumnAlignment(int column, Alignment alignment);  // every cell of the column below the header

    // The current cell; row 0 and column 0 can be made current by program.
    [[nodiscard]] int row() const noexcept { return current_.row; }
    [[nodiscard]] int column() const noexcept { return current_.column; }
    void setRow(int row);
    void setColumn(int column);
    void setCurrent(Cell cell);
    // The other end of the selection.
    [[nodiscard]] int rowSel() const noexcept { return end_.row; }
    [[nodiscard]] int columnSel() const noexcept { return end_.column; }
    void setRowSel(int row);
    void setColumnSel(int column);
    void select(Cell current, Cell end);
    [[nodiscard]] CellRange selection() const noexcept;

    // First scrolled row and column shown, 1 or more. A value beyond the end shows the last page.
    [[nodiscard]] int topRow() const noexcept { return topRow_; }
    [[nodiscard]] int leftColumn() const noexcept { return leftColumn_; }
    void setTopRow(int row);
    void setLeftColumn(int column);

    // While off, changes are collected and reported to the peer as one when it is switched on again.
    [[nodiscard]] bool redraw() const noexcept { return redraw_; }
    void setRedraw(bool redraw);
    // Asks the peer to repaint everything.
    void refresh();

    // The frame around the visible part of the current row, drawn by inverting; its blink phase.
    [[nodiscard]] bool highlightShown() const noexcept { return highlightShown_; }
    void setHighlightShown(bool shown);

    base::Event<const MouseEvent&> MouseDown;
    base::Event<> Click;
    base::Event<> DblClick;
    base::Event<> SelectionChanged;  // by the user or by program

private:
    struct CellState {
        std::string text;
        Colour backColor = 0;
        Alignment alignment = Alignment::LeftCentre;
    };

    [[nodiscard]] std::size_t at(int row, int column) const;
    void checkCell(Cell cell) const;
    void moveTo(Cell current, Cell end);
    void damage(const CellRange& cells);
    void layout();
    [[nodiscard]] GridPeer* gridPeer() const noexcept { return static_cast<GridPeer*>(peer()); }

    int rows_;
    int columns_;
    std::vector<CellState> cells_;
    std::vector<int> widths_;
    Cell current_{1, 1};
    Cell end_{1, 1};
    int topRow_ = 1;
    int leftColumn_ = 1;
    CellRange damaged_{};
    bool hasDamage_ = false;
    bool layoutDamaged_ = false;
    bool redraw_ = true;
    bool highlightShown_ = false;
};

}  // namespace telvar::ui
