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

    // The grid's own key-down rule runs first, for every key. Answers whether the grid used the key: arrows, Page Up and
    // Down, Home, End (with Ctrl and Shift), Ctrl+C, Ctrl+V, Backspace, Delete and characters; anything else is the host's.
    bool keyDown(KeyEvent event, const GridLayout& layout);
    // Whether the grid would use that key, without doing anything.
    [[nodiscard]] static bool takesKey(const KeyEvent& event) noexcept;
    // A typed character. The Delete key arrives here as 46, after its key-down.
    void keyPress(int code);

    void mouseDown(const MouseEvent& event, const GridLayout& layout);
    void mouseMove(Point at, const GridLayout& layout);
    void mouseUp(const MouseEvent& event, const GridLayout& layout);
    // Leaves the selection as it was before the first press of the double-click.
    void doubleClick(const MouseEvent& event, const GridLayout& layout);
    // Notches: positive is towards the top.
    void wheel(int notches, int rowsPerNotch, const GridLayout& layout);
    [[nodiscard]] bool dragging() const noexcept { return dragging_; }

private:
    struct Selection {
        Cell current;
        Cell end;
    };

    bool navigate(const KeyEvent& event, const GridLayout& layout);
    void moveTo(Cell cell, bool extend, const GridLayout& layout);

    Grid& grid_;
    Selection beforePress_{};
    std::optional<Cell> collapseOnRelease_;
    bool dragging_ = false;
};

}  // namespace telvar::ui
