// Pixels, the DPI of a window, and HIMETRIC (hundredths of a millimetre), in which embedded objects are sized.
#pragma once

#include <windows.h>

namespace telvar::win {

inline constexpr int standardDpi = 96;

// Of the monitor the window is on where the system tells, otherwise (or without a window) of the whole system.
[[nodiscard]] int dpiOf(HWND window) noexcept;

// From pixels at 96 dpi.
[[nodiscard]] int scaled(int length, int dpi) noexcept;

[[nodiscard]] SIZEL toHimetric(SIZE pixels, int dpi) noexcept;
[[nodiscard]] SIZE toPixels(SIZEL himetric, int dpi) noexcept;

}  // namespace telvar::win
