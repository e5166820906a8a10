#include "win32/fonts.h"

#include <algorithm>

#include "win/scaling.h"

namespace telvar::win32 {

LOGFONTW messageFont(int dpi) noexcept {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    LOGFONTW font{};
    if (SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0) != FALSE) {
        font = metrics.lfMessageFont;
        font.lfHeight = MulDiv(font.lfHeight, dpi, win::screenDpi());
    } else {
        constexpr int points = 8;
        font.lfHeight = -MulDiv(points, dpi, 72);
        font.lfWeight = FW_NORMAL;
        constexpr std::wstring_view face = L"MS Shell Dlg 2";
        std::ranges::copy(face, std::begin(font.lfFaceName));
    }
    font.lfWidth = 0;
    return font;
}

FormFont::FormFont(int dpi) : dpi_(dpi) {
    const LOGFONTW description = messageFont(dpi);
    font_ = win::Font(CreateFontIndirectW(&description));
    const win::MemoryContext dc;
    const win::Selected selected(dc.get(), font_.get());
    TEXTMETRICW metrics{};
    GetTextMetricsW(dc.get(), &metrics);
    height_ = static_cast<int>(metrics.tmHeight);
    GetCharWidth32W(dc.get(), 0, static_cast<UINT>(widths_.size() - 1), widths_.data());
}

int FormFont::widthOf(HDC dc, std::wstring_view text) const noexcept {
    if (!isAscii(text)) {
        SIZE size{};
        GetTextExtentPoint32W(dc, text.data(), static_cast<int>(text.size()), &size);
        return static_cast<int>(size.cx);
    }
    int width = 0;
    for (const wchar_t character : text) {
        width += widths_[character];
    }
    return width;
}

int FormFont::widthOf(std::wstring_view text) const noexcept {
    if (isAscii(text)) {
        return widthOf(nullptr, text);
    }
    const win::MemoryContext dc;
    const win::Selected selected(dc.get(), font_.get());
    return widthOf(dc.get(), text);
}

std::size_t FormFont::fitting(HDC dc, std::wstring_view text, int room) const noexcept {
    std::size_t count = 0;
    if (isAscii(text)) {
        for (int width = 0; count < text.size(); ++count) {
            width += widths_[text[count]];
            if (width > room) {
                break;
            }
        }
        return count;
    }
    int fit = 0;
    SIZE size{};
    GetTextExtentExPointW(dc, text.data(), static_cast<int>(text.size()), std::max(room, 0), &fit, nullptr, &size);
    count = static_cast<std::size_t>(std::max(fit, 0));
    // Two of these units are one character.
    return count > 0 && IS_HIGH_SURROGATE(text[count - 1]) ? count - 1 : count;
}

bool FormFont::isAscii(std::wstring_view text) const noexcept {
    return std::ranges::all_of(text, [this](wchar_t character) { return character < widths_.size(); });
}

}  // namespace telvar::win32
