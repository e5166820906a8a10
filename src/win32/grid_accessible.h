// What a grid window tells screen readers: a table whose simple children are all its cells, headers included, each with
// name, role, value, state and place.
#pragma once

#include <windows.h>

#include <memory>

#include "ui/grid.h"

namespace telvar::win32 {

class GridWindow;

// Child number of a cell, 1 or more.
[[nodiscard]] inline LONG accessibleId(const ui::Grid& grid, ui::Cell cell) noexcept {
    return static_cast<LONG>((cell.row * grid.columns()) + cell.column + 1);
}

// Answers WM_GETOBJECT for the client area. The object that it hands out may outlive the window and then answers that
// it is gone.
[[nodiscard]] LRESULT accessibleAnswer(const std::shared_ptr<GridWindow>& window, WPARAM wParam);

}  // namespace telvar::win32
