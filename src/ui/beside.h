// Where a window comes up that must not hide what it is about.
#pragma once

#include <optional>

#include "ui/geometry.h"

namespace telvar::ui {

// The upper left corner of a window of that size beside a row: on its right, else on its left, else below it, else
// above it, and wholly on the screen. Nothing where the screen has room on no side. All in pixels of the screen.
[[nodiscard]] std::optional<Point> besideRow(const Rect& row, Size window, const Rect& screen) noexcept;

}  // namespace telvar::ui
