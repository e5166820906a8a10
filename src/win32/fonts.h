// The font of forms and of the grid: the one that the user chose for messages, at a given number of dots per inch.
#pragma once

#include <windows.h>

#include <array>
#include <cstddef>
#include <string_view>

#include "win/gdi.h"

namespace telvar::win32 {

// The face and style of the user's message font with a height for that many dots per inch.
[[nodiscard]] LOGFONTW messageFont(int dpi) noexcept;

class FormFont {
public:
    explicit FormFont(int dpi);

    [[nodiscard]] HFONT get() const noexcept { return font_.get(); }
    [[nodiscard]] int dpi() const noexcept { return dpi_; }
    [[nodiscard]] int height() const noexcept { return height_; }
    // Pixels that a text takes in one line; with the font selected in `dc`, and where there is none at hand. Cheap for
    // ASCII, which is what nearly every cell and every caption holds.
    [[nodiscard]] int widthOf(HDC dc, std::wstring_view text) const noexcept;
    [[nodiscard]] int widthOf(std::wstring_view text) const noexcept;
    // How many characters from the beginning fit into so many pixels, with the font selected in `dc`.
    [[nodiscard]] std::size_t fitting(HDC dc, std::wstring_view text, int room) const noexcept;

private:
    [[nodiscard]] bool isAscii(std::wstring_view text) const noexcept;

    int dpi_;
    int height_ = 0;
    std::array<INT, 128> widths_{};
    win::Font font_;
};

}  // namespace telvar::win32
