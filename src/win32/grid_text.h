// How much of a cell's text is shown, and where: whole with the usual inset; where it would not fit, whole with a
// smaller one; and where it does not fit even so, shortened with dots. Headers break into lines first.
#pragma once

#include <windows.h>

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "win32/fonts.h"

namespace telvar::win32 {

struct FittedText {
    std::wstring_view text;
    int width = 0;  // pixels
    int inset = 0;  // between the text and the left and right edge of its cell, at least
    bool cut = false;
};

// The frequencies' headers need three in the widths that they have been given.
inline constexpr std::size_t headerLines = 3;

class HeaderText {
public:
    [[nodiscard]] std::span<const std::wstring_view> lines() const noexcept { return std::span(lines_).first(count_); }
    void add(std::wstring_view line) noexcept { lines_[count_++] = line; }

private:
    std::array<std::wstring_view, headerLines> lines_;
    std::size_t count_ = 0;
};

// Measures with the font selected in `dc`.
class GridText {
public:
    GridText(const FormFont& font, HDC dc) noexcept : font_(font), dc_(dc) {}

    // For a cell so many pixels wide. A shortened text stands in `buffer`.
    [[nodiscard]] FittedText cell(std::wstring_view text, int width, std::wstring& buffer) const;
    // One line of a header.
    [[nodiscard]] FittedText headerLine(std::wstring_view text, int width, std::wstring& buffer) const;
    [[nodiscard]] HeaderText header(std::wstring_view text, int width) const;
    [[nodiscard]] bool headerIsCut(std::wstring_view text, int width) const;

private:
    [[nodiscard]] FittedText fitted(std::wstring_view text, int width, int inset, std::wstring& buffer) const;
    [[nodiscard]] int smallInset() const noexcept;

    const FormFont& font_;
    HDC dc_;
};

}  // namespace telvar::win32
