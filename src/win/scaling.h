// Pixels, the DPI of a window, and HIMETRIC (hundredths of a millimetre), in which embedded objects are sized.
// Awareness of the DPI is the process's business and is never set here.
#pragma once

#include <windows.h>

namespace telvar::win {

inline constexpr int standardDpi = 96;

// Of the monitor the window is on where the system tells (Windows 10 and later), otherwise, or without a window, of the
// screen.
[[nodiscard]] int dpiOf(HWND window) noexcept;
[[nodiscard]] int screenDpi() noexcept;

// From pixels at 96 dpi.
[[nodiscard]] int scaled(int length, int dpi) noexcept;

[[nodiscard]] SIZEL toHimetric(SIZE pixels, int dpi) noexcept;
[[nodiscard]] SIZE toPixels(SIZEL himetric, int dpi) noexcept;

}  // namespace telvar::win
