// Between the portable types and the system's: rectangles, colours.
#pragma once

#include <windows.h>

#include <string>

#include "ui/geometry.h"

namespace telvar::win32 {

// Text of a window, as UTF-8.
[[nodiscard]] std::string windowText(HWND window);

[[nodiscard]] inline RECT rectOf(const ui::Rect& rect) noexcept {
    return {rect.left, rect.top, rect.right, rect.bottom};
}
[[nodiscard]] inline ui::Rect rectOf(const RECT& rect) noexcept {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

// Resolves the indices of system colours.
[[nodiscard]] inline COLORREF colourOf(ui::Colour colour) noexcept {
    return (colour & 0x80000000U) != 0 ? GetSysColor(static_cast<int>(colour & 0xFFU)) : (colour & 0x00FFFFFFU);
}

}  // namespace telvar::win32
