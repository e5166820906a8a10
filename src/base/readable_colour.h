// Whether a text can be read on what lies behind it, and a like colour that can. Colours are 0x00BBGGRR.
#pragma once

#include <cstdint>

namespace telvar::base {

using Rgb = std::uint32_t;

// What the accessibility guidelines (WCAG 2, 1.4.3 and 1.4.11) ask of large text and of everything else that must be
// made out. Pure red has it on white, on the usual grey of a dialog and on black.
inline constexpr double readableContrast = 3.0;

// 0 for black to 1 for white, as the eye sees it. The screen's curve is taken as a square, which is exact for the pure
// colours and cheap enough for every cell of a grid.
[[nodiscard]] constexpr double luminance(Rgb colour) noexcept {
    const auto light = [colour](unsigned shift) {
        const double part = static_cast<double>((colour >> shift) & 0xFFU) / 255.0;
        return part * part;
    };
    return (0.2126 * light(0)) + (0.7152 * light(8)) + (0.0722 * light(16));
}

// From 1, the same brightness, to 21, black and white.
[[nodiscard]] constexpr double contrast(Rgb one, Rgb other) noexcept {
    constexpr double stray = 0.05;  // light that every screen reflects
    const double light = luminance(one) + stray;
    const double dark = luminance(other) + stray;
    return light > dark ? light / dark : dark / light;
}

// `share` of `over`, in hundredths, the rest of `under`.
[[nodiscard]] constexpr Rgb mixed(Rgb under, Rgb over, int share) noexcept {
    Rgb result = 0;
    for (unsigned shift = 0; shift < 24; shift += 8) {
        const int low = static_cast<int>((under >> shift) & 0xFFU);
        const int high = static_cast<int>((over >> shift) & 0xFFU);
        result |= static_cast<Rgb>(low + (((high - low) * share) / 100)) << shift;
    }
    return result;
}

// `text` where it can be read on `back`; else the nearest to it, lighter or darker, that can.
[[nodiscard]] constexpr Rgb readable(Rgb text, Rgb back) noexcept {
    constexpr Rgb light = 0xFFFFFF;
    constexpr Rgb dark = 0x000000;
    constexpr int step = 10;
    const Rgb end = contrast(light, back) > contrast(dark, back) ? light : dark;
    Rgb shown = text;
    for (int share = step; contrast(shown, back) < readableContrast && share <= 100; share += step) {
        shown = mixed(text, end, share);
    }
    return shown;
}

// The one of two that stands out more, and can be read.
[[nodiscard]] constexpr Rgb readableOf(Rgb one, Rgb other, Rgb back) noexcept {
    return readable(contrast(one, back) >= contrast(other, back) ? one : other, back);
}

}  // namespace telvar::base
