// Which part of which monitor a window may take: monitors come and go.
#pragma once

#include <windows.h>

#include <span>
#include <vector>

namespace telvar::win {

// `wanted` moved and shrunk so that it lies on the work area that shows most of it, or on the first one when none does.
// `workAreas` is not empty.
[[nodiscard]] RECT fitted(RECT wanted, std::span<const RECT> workAreas) noexcept;

// Of one monitor, or of the whole screen when the monitor is gone.
[[nodiscard]] RECT workAreaOf(HMONITOR monitor) noexcept;

// The work areas of all monitors, the main one first; never empty.
[[nodiscard]] std::vector<RECT> workAreas();

// Moves a window over its owner, on one monitor as a whole.
void centreOverOwner(HWND window);

}  // namespace telvar::win
