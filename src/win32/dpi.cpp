#include "win32/dpi.h"

#include <bit>

#include "win32/gdi.h"

namespace telvar::win32 {

int screenDpi() noexcept {
    const WindowContext screen(nullptr);
    const int dpi = GetDeviceCaps(screen.get(), LOGPIXELSX);
    return dpi > 0 ? dpi : USER_DEFAULT_SCREEN_DPI;
}

int dpiOf(HWND window) noexcept {
    using GetDpi = UINT(WINAPI*)(HWND);
    // Not in the import table: the control also loads where the function does not exist.
    const FARPROC found = GetProcAddress(GetModuleHandleW(L"user32.dll"), "GetDpiForWindow");
    const auto getDpi = std::bit_cast<GetDpi>(found);
    const UINT dpi = getDpi != nullptr && window != nullptr ? getDpi(window) : 0;
    return dpi > 0 ? static_cast<int>(dpi) : screenDpi();
}

}  // namespace telvar::win32
