#include "win32/peer.h"

namespace telvar::win32 {

unsigned shiftState() noexcept {
    const auto held = [](int key, unsigned bit) { return GetKeyState(key) < 0 ? bit : ui::shift::none; };
    return held(VK_SHIFT, ui::shift::shift) | held(VK_CONTROL, ui::shift::control) | held(VK_MENU, ui::shift::alt);
}

}  // namespace telvar::win32
