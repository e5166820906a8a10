// Presses keys as a user does: they go wherever the keyboard focus is.
#pragma once

#include <windows.h>

#include <initializer_list>

namespace telvar::walk {

// Virtual keys, pressed in this order and released in reverse.
void press(std::initializer_list<WORD> chord) noexcept;

}  // namespace telvar::walk
