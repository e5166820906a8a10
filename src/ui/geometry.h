// Points, sizes and rectangles in pixels, colours, and the published unit of lengths: the twip, a 1440th of an inch.
#pragma once

#include <algorithm>
#include <cstdint>

namespace telvar::ui {

struct Point {
    int x = 0;
    int y = 0;
    bool operator==(const Point&) const = default;
};

struct Size {
    int width = 0;
    int height = 0;
    bool operator==(const Size&) const = default;
};

// Right and bottom are the first pixels outside.
struct Rect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    bool operator==(const Rect&) const = default;

    [[nodiscard]] constexpr int width() const noexcept { return right - left; }
    [[nodiscard]] constexpr int height() const noexcept { return bottom - top; }
    [[nodiscard]] constexpr bool empty() const noexcept { return right <= left || bottom <= top; }
    [[nodiscard]] constexpr bool contains(Point point) const noexcept {
        return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
    }
    [[nodiscard]] constexpr Rect intersected(const Rect& other) const noexcept {
        return {std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
                std::min(bottom, other.bottom)};
    }
};

inline constexpr int twipsPerInch = 1440;
inline constexpr int standardDpi = 96;

// Rounded to the nearest pixel.
[[nodiscard]] constexpr int pixelsOf(int twips, int dpi) noexcept {
    return (twips * dpi + (twips < 0 ? -twipsPerInch / 2 : twipsPerInch / 2)) / twipsPerInch;
}
[[nodiscard]] constexpr int twipsOf(int pixels, int dpi) noexcept {
    return (pixels * twipsPerInch + (pixels < 0 ? -dpi / 2 : dpi / 2)) / dpi;
}

// 0x00BBGGRR; with 0x80000000 set, an index into the user's system colours.
using Colour = std::uint32_t;
inline constexpr Colour black = 0x000000;
inline constexpr Colour white = 0xFFFFFF;
inline constexpr Colour green = 0x00FF00;
inline constexpr Colour red = 0x0000FF;
inline constexpr Colour windowBackground = 0x80000005;
inline constexpr Colour windowText = 0x80000008;
inline constexpr Colour buttonFace = 0x8000000F;
inline constexpr Colour buttonText = 0x80000012;

}  // namespace telvar::ui
