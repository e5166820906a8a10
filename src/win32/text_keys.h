// The keys that a field with a text uses itself.
#pragma once

#include <windows.h>

#include "ui/input.h"

namespace telvar::win32 {

[[nodiscard]] inline bool isTextShortcut(int code) noexcept {
    return code == 'A' || code == 'C' || code == 'V' || code == 'X' || code == 'Z';
}

[[nodiscard]] inline bool isTextKey(const ui::KeyEvent& event) noexcept {
    using namespace ui;
    if ((event.shift & shift::alt) != 0) {
        return false;
    }
    const bool moves = event.code >= key::end && event.code <= key::down;
    if (moves || event.code == key::backspace || event.code == key::deleteKey) {
        return true;
    }
    if ((event.shift & shift::control) != 0) {
        return isTextShortcut(event.code);
    }
    constexpr int firstNumpad = VK_NUMPAD0;
    constexpr int lastNumpad = VK_DIVIDE;
    constexpr int firstPunctuation = VK_OEM_1;
    constexpr int lastPunctuation = VK_OEM_102;
    return event.code == key::space || (event.code >= '0' && event.code <= 'Z') ||
           (event.code >= firstNumpad && event.code <= lastNumpad) ||
           (event.code >= firstPunctuation && event.code <= lastPunctuation);
}

// Characters that no control with one line has a use for; a field would only beep at them.
[[nodiscard]] inline bool isNoText(int character) noexcept {
    return character == ui::key::enter || character == ui::key::tab || character == ui::key::escape;
}

}  // namespace telvar::win32
