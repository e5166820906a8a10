// What the user does, as widgets and grids are told it.
#pragma once

#include <cstdint>

#include "ui/geometry.h"

namespace telvar::ui {

// Bits of a shift state.
namespace shift {
inline constexpr unsigned none = 0;
inline constexpr unsigned shift = 1;
inline constexpr unsigned control = 2;
inline constexpr unsigned alt = 4;
}  // namespace shift

// Virtual key codes that this system's rules name.
namespace key {
inline constexpr int backspace = 8;
inline constexpr int tab = 9;
inline constexpr int enter = 13;
inline constexpr int shift = 16;
inline constexpr int control = 17;
inline constexpr int alt = 18;
inline constexpr int capsLock = 20;
inline constexpr int escape = 27;
inline constexpr int space = 32;
inline constexpr int pageUp = 33;
inline constexpr int pageDown = 34;
inline constexpr int end = 35;
inline constexpr int home = 36;
inline constexpr int left = 37;
inline constexpr int up = 38;
inline constexpr int right = 39;
inline constexpr int down = 40;
inline constexpr int deleteKey = 46;
inline constexpr int c = 67;
inline constexpr int v = 86;
}  // namespace key

// A handler swallows the key by setting the code to 0.
struct KeyEvent {
    int code = 0;
    unsigned shift = shift::none;
};

// A typed character; a handler swallows it by setting the code to 0.
struct KeyPressEvent {
    int code = 0;
};

enum class MouseButton : std::uint8_t { Left = 1, Right = 2, Middle = 4 };

struct MouseEvent {
    MouseButton button = MouseButton::Left;
    unsigned shift = shift::none;
    Point at;  // pixels, relative to the widget
};

}  // namespace telvar::ui
