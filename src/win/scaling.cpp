// The DPI question is asked by name, because systems before Windows 10 do not know it.
#include "win/scaling.h"

#include <bit>

namespace telvar::win {

namespace {

constexpr int himetricPerInch = 2540;

using DpiForWindow = UINT(WINAPI*)(HWND);

DpiForWindow findDpiForWindow() noexcept {
    const HMODULE user = GetModuleHandleW(L"user32.dll");
    const FARPROC found = user == nullptr ? nullptr : GetProcAddress(user, "GetDpiForWindow");
    return std::bit_cast<DpiForWindow>(found);
}

int systemDpi() noexcept {
    const HDC screen = GetDC(nullptr);
    const int dpi = screen == nullptr ? 0 : GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return dpi > 0 ? dpi : standardDpi;
}

}  // namespace

int dpiOf(HWND window) noexcept {
    static const DpiForWindow ask = findDpiForWindow();
    const int dpi = ask == nullptr ? 0 : static_cast<int>(ask(window));
    return dpi > 0 ? dpi : systemDpi();
}

int scaled(int length, int dpi) noexcept { return MulDiv(length, dpi, standardDpi); }

SIZEL toHimetric(SIZE pixels, int dpi) noexcept {
    return {MulDiv(pixels.cx, himetricPerInch, dpi), MulDiv(pixels.cy, himetricPerInch, dpi)};
}

SIZE toPixels(SIZEL himetric, int dpi) noexcept {
    return {MulDiv(himetric.cx, dpi, himetricPerInch), MulDiv(himetric.cy, dpi, himetricPerInch)};
}

}  // namespace telvar::win
