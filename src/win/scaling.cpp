#include "win/scaling.h"

#include <bit>

#include "win/gdi.h"

namespace telvar::win {

namespace {

constexpr int himetricPerInch = 2540;

using DpiForWindow = UINT(WINAPI*)(HWND);

// Not in the import table: our modules also load where the function does not exist.
DpiForWindow findDpiForWindow() noexcept {
    const HMODULE user = GetModuleHandleW(L"user32.dll");
    const FARPROC found = user == nullptr ? nullptr : GetProcAddress(user, "GetDpiForWindow");
    return std::bit_cast<DpiForWindow>(found);
}

}  // namespace

int screenDpi() noexcept {
    const WindowContext screen(nullptr);
    const int dpi = GetDeviceCaps(screen.get(), LOGPIXELSX);
    return dpi > 0 ? dpi : standardDpi;
}

int dpiOf(HWND window) noexcept {
    static const DpiForWindow ask = findDpiForWindow();
    const int dpi = ask == nullptr || window == nullptr ? 0 : static_cast<int>(ask(window));
    return dpi > 0 ? dpi : screenDpi();
}

int scaled(int length, int dpi) noexcept { return MulDiv(length, dpi, standardDpi); }

SIZEL toHimetric(SIZE pixels, int dpi) noexcept {
    return {MulDiv(pixels.cx, himetricPerInch, dpi), MulDiv(pixels.cy, himetricPerInch, dpi)};
}

SIZE toPixels(SIZEL himetric, int dpi) noexcept {
    return {MulDiv(himetric.cx, dpi, himetricPerInch), MulDiv(himetric.cy, dpi, himetricPerInch)};
}

}  // namespace telvar::win
