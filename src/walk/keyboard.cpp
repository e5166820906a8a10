#include "walk/keyboard.h"

#include <ranges>

namespace telvar::walk {

namespace {

bool isExtended(WORD key) noexcept {
    switch (key) {
    case VK_PRIOR:
    case VK_NEXT:
    case VK_END:
    case VK_HOME:
    case VK_LEFT:
    case VK_UP:
    case VK_RIGHT:
    case VK_DOWN:
    case VK_INSERT:
    case VK_DELETE:
        return true;
    default:
        return false;
    }
}

INPUT keyInput(WORD key, DWORD flags) noexcept {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags | (isExtended(key) ? DWORD{KEYEVENTF_EXTENDEDKEY} : DWORD{0});
    return input;
}

}  // namespace

void press(std::initializer_list<WORD> chord) noexcept {
    for (const WORD key : chord) {
        INPUT input = keyInput(key, 0);
        SendInput(1, &input, sizeof input);
    }
    for (const WORD key : std::views::reverse(chord)) {
        INPUT input = keyInput(key, KEYEVENTF_KEYUP);
        SendInput(1, &input, sizeof input);
    }
}

}  // namespace telvar::walk
