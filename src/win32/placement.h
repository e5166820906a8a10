// Where a window of its own comes up. All rectangles are in pixels of the screen, without the bars that the system
// keeps at its edges.
#pragma once

#include <windows.h>

#include "ui/geometry.h"

namespace telvar::win32 {

// The middle of a visible window, else of the screen that it is on or, without one, of the first screen.
[[nodiscard]] ui::Point middleOver(HWND owner) noexcept;
// The screen that most of a rectangle is on, else the nearest one.
[[nodiscard]] ui::Rect screenAt(const ui::Rect& at) noexcept;
// Moved onto the nearest screen as far as it fits there; what is too large begins at the upper left corner.
[[nodiscard]] ui::Rect keptOnScreen(const ui::Rect& window) noexcept;

}  // namespace telvar::win32
