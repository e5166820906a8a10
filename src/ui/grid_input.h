// What mouse and keys do to a grid: selection, dragging, scrolling and the grid's own notifications. Portable; a window
// hands in what the user did together with the present layout.
#pragma once

#include <optional>

#include "ui/grid.h"
#include "ui/grid_layout.h"

namespace telvar::ui {

class GridInput {
public:
    explicit GridInput(Grid& grid) noexcept : grid_(grid) {}

    // The grid's own key-down rule runs first, for every key. Answers whether the grid used the key: arrows, Page Up
    // and Down, Home, End (with Ctrl and Shift), Ctrl+C, Ctrl+V, Backspace, Delete and characters; anything else is the
    // host's.
    bool keyDown(KeyEvent event, const GridLayout& layout);
    // Whether the grid would use that key, without doing anything.
    [[nodiscard]] static bool takesKey(const KeyEvent& event) noexcept;
    // A typed character. The Delete key arrives here as 46, after its key-down.
    void keyPress(int code);

    // A press selects: a cell, on a row label the whole row, on a header the whole column, in the corner everything;
    // with Shift it extends. The right button does so only outside the selection. The grid's MouseDown follows.
    void mouseDown(const MouseEvent& event, const GridLayout& layout);
    // While dragging: the selection's far end follows the point.
    void mouseMove(Point at, const GridLayout& layout);
    // Ends the drag, collapses a selection of several rows that was pressed inside, scrolls the pressed cell into view
    // (not sooner, so that the second press of a double-click hits the same cell), and raises Click.
    void mouseUp(const MouseEvent& event, const GridLayout& layout);
    // The second press, which is on the cell that the first one hit: the release between them may have scrolled. That
    // cell's row is the current one by then. The grid's DblClick follows.
    void doubleClick(const MouseEvent& event, const GridLayout& layout);
    // The drag is over without a release, as when the window loses the mouse.
    void cancelDrag() noexcept;
    // Notches: positive is towards the top.
    void wheel(int notches, int rowsPerNotch, const GridLayout& layout);
    [[nodiscard]] bool dragging() const noexcept { return drag_ != Unit::None; }

private:
    // What a press takes hold of.
    enum class Unit : std::uint8_t { None, Cell, Row, Column };

    struct Selection {
        Cell current;
        Cell end;
    };

    void navigate(const KeyEvent& event, const GridLayout& layout);
    [[nodiscard]] Cell target(const KeyEvent& event, Cell from, const GridLayout& layout) const;
    void scrollTo(Cell cell, const GridLayout& layout);

    [[nodiscard]] static Unit unitOf(Cell hit) noexcept;
    [[nodiscard]] Selection unitAt(Cell hit) const;
    [[nodiscard]] bool selected(Cell hit) const;
    void press(Cell hit, bool extend);
    void extendTo(Cell cell, Unit unit);
    void collapse();

    Grid& grid_;
    Unit drag_ = Unit::None;
    std::optional<Cell> pressed_;          // by the left button, until it is released
    std::optional<Selection> collapsing_;  // to this, when a press inside several rows is released
    std::optional<DoubleClick> press_;     // the left button's last, with what it found selected
};

}  // namespace telvar::ui
