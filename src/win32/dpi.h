// Dots per inch. Awareness of them is the process's business and is never set here.
#pragma once

#include <windows.h>

namespace telvar::win32 {

// Of the window where the system can tell (Windows 10 and later), else of the screen.
[[nodiscard]] int dpiOf(HWND window) noexcept;
[[nodiscard]] int screenDpi() noexcept;

}  // namespace telvar::win32
