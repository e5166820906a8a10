#include "win32/dpi.h"

#include <bit>

#include "win32/gdi.h"

namespace telvar::win32 {

namespace {

// Not in the import table: the control also loads where the function does not exist.
template <class Function>
Function userFunction(const char* name) noexcept {
    return std::bit_cast<Function>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name));
}

}  // namespace

int screenDpi() noexcept {
    const WindowContext screen(nullptr);
    const int dpi = GetDeviceCaps(screen.get(), LOGPIXELSX);
    return dpi > 0 ? dpi : USER_DEFAULT_SCREEN_DPI;
}

int dpiOf(HWND window) noexcept {
    const auto getDpi = userFunction<UINT(WINAPI*)(HWND)>("GetDpiForWindow");
    const UINT dpi = getDpi != nullptr && window != nullptr ? getDpi(window) : 0;
    return dpi > 0 ? static_cast<int>(dpi) : screenDpi();
}

ui::Size sizeAround(ui::Size client, DWORD style, DWORD extendedStyle, int dpi) noexcept {
    RECT whole{0, 0, client.width, client.height};
    using Adjust = BOOL(WINAPI*)(RECT*, DWORD, BOOL, DWORD, UINT);
    const auto adjust = userFunction<Adjust>("AdjustWindowRectExForDpi");
    if (adjust == nullptr || adjust(&whole, style, FALSE, extendedStyle, static_cast<UINT>(dpi)) == FALSE) {
        AdjustWindowRectEx(&whole, style, FALSE, extendedStyle);
    }
    return {static_cast<int>(whole.right - whole.left), static_cast<int>(whole.bottom - whole.top)};
}

}  // namespace telvar::win32
