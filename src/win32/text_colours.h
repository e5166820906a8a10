// The colours that texts are shown in. A widget's colour is a wish: black and the default mean the system's text colour
// for that ground, and any other gives way where it could not be read there. What a widget holds never changes by this.
#pragma once

#include <windows.h>

#include "base/readable_colour.h"
#include "ui/geometry.h"
#include "win32/convert.h"

namespace telvar::win32 {

// A system colour to write on, and the system's colour for what is written there.
struct Ground {
    int back;
    int text;
};
inline constexpr Ground fieldGround{COLOR_WINDOW, COLOR_WINDOWTEXT};
inline constexpr Ground faceGround{COLOR_BTNFACE, COLOR_BTNTEXT};

[[nodiscard]] inline COLORREF textColourOn(Ground ground, ui::Colour wanted) noexcept {
    if (wanted == ui::black || wanted == ui::windowText) {
        return GetSysColor(ground.text);
    }
    return base::readable(colourOf(wanted), GetSysColor(ground.back));
}

// On a colour that a program chose: whichever of the two colours of a field stands out more.
[[nodiscard]] inline COLORREF textColourOn(COLORREF back) noexcept {
    return base::readableOf(GetSysColor(COLOR_WINDOWTEXT), GetSysColor(COLOR_WINDOW), back);
}

// Makes them the colours of `dc`, and answers the brush to erase with, which is the system's.
[[nodiscard]] inline HBRUSH useColours(HDC dc, Ground ground, ui::Colour text) noexcept {
    SetTextColor(dc, textColourOn(ground, text));
    SetBkColor(dc, GetSysColor(ground.back));
    return GetSysColorBrush(ground.back);
}

}  // namespace telvar::win32
