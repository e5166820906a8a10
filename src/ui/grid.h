// The contents and the selection of a grid: cell texts and colours, column widths, the current cell, the selection's
// far end, the first row and column shown, and the redraw switch. Where cells lie on the screen is GridLayout's
// business, what mouse and keys do is GridInput's.
//
// Making a row or column current collapses the selection to the current cell. Rows and columns outside the grid are a
// base::SubscriptFailure.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
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

// What a double-click was made on.
struct DoubleClick {
    Cell at;             // row 0 and column 0 are headers
    CellRange selected;  // before its first press, where the row of that was among several; else what is selected now
};

// Codes as the published interface has them.
enum class Alignment : std::uint8_t { LeftCentre = 1, Centre = 4, RightCentre = 7 };

// How cells look where nothing else is said.
struct GridDisplay {
    Colour backColor = windowBackground;
    Colour foreColor = windowText;
    bool gridLines = true;
    bool selectionShown = true;
    bool operator==(const GridDisplay&) const = default;
};

// Twips; of a column that nobody has set.
inline constexpr int defaultColumnWidth = 960;

class GridPeer : public WidgetPeer {
public:
    // Texts, colours or selection of these cells changed; called once for a whole refresh.
    virtual void cellsChanged(const CellRange& cells) noexcept = 0;
    // Column widths, the first row or column shown, or the highlight frame changed.
    virtual void layoutChanged() noexcept = 0;
    virtual void highlightChanged() noexcept = 0;
    // The visible part of the current row, in pixels of the screen; nothing where it cannot be seen.
    [[nodiscard]] virtual std::optional<Rect> currentRowOnScreen() const { return std::nullopt; }
};

class Grid : public Widget {
public:
    // Row 0 and column 0 are fixed.
    Grid(std::string name, int rows, int columns);

    void attach(GridPeer& peer) noexcept { Widget::attach(peer); }

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

    // First scrolled row and column shown. Held to the grid's rows and columns; what lies beyond the last page shows
    // the last page (GridLayout knows it, since only a view has pages).
    [[nodiscard]] int topRow() const noexcept { return topRow_; }
    [[nodiscard]] int leftColumn() const noexcept { return leftColumn_; }
    void setTopRow(int row);
    void setLeftColumn(int column);

    [[nodiscard]] const GridDisplay& display() const noexcept { return display_; }
    void setDisplay(const GridDisplay& display);

    // While off, changes are collected and reported to the peer as one when it is switched on again; SelectionChanged
    // waits, too, and is raised once if the selection differs by then.
    [[nodiscard]] bool redraw() const noexcept { return redraw_; }
    void setRedraw(bool redraw);
    // Asks the peer to repaint everything.
    void refresh();

    // The frame around the visible part of the current row, drawn by inverting; its blink phase.
    [[nodiscard]] bool highlightShown() const noexcept { return highlightShown_; }
    void setHighlightShown(bool shown);

    // Where the user sees the current row, in pixels of the screen; nothing without a window or while it is scrolled
    // out.
    [[nodiscard]] std::optional<Rect> currentRowOnScreen() const;

    base::Event<const MouseEvent&> MouseDown;
    base::Event<> Click;
    base::Event<const DoubleClick&> DblClick;
    base::Event<> SelectionChanged;  // by the user or by program

private:
    struct CellState {
        std::string text;
        Colour backColor = 0;
        Alignment alignment = Alignment::LeftCentre;
    };

    // What the peer has not been told yet.
    struct Damage {
        bool cells = false;
        bool layout = false;
        bool highlight = false;
        bool everything = false;
        CellRange range;
    };

    [[nodiscard]] std::size_t at(int row, int column) const;
    [[nodiscard]] CellState& cell(int row, int column) { return cells_[at(row, column)]; }
    void moveTo(Cell current, Cell end);
    void damage(const CellRange& cells);
    void damageLayout();
    void tellSelection();
    void tellDamage();
    [[nodiscard]] GridPeer* gridPeer() const noexcept { return static_cast<GridPeer*>(peer()); }

    int rows_;
    int columns_;
    std::vector<CellState> cells_;
    std::vector<int> widths_;
    Cell current_{1, 1};
    Cell end_{1, 1};
    int topRow_ = 1;
    int leftColumn_ = 1;
    GridDisplay display_;
    Damage damage_;
    Cell currentTold_{1, 1};  // as of the last SelectionChanged
    Cell endTold_{1, 1};
    bool redraw_ = true;
    bool highlightShown_ = false;
};

}  // namespace telvar::ui
