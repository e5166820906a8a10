// The menu bar and the keys, made from the table of commands, and what a menu offers at the moment it opens.
#pragma once

#include <windows.h>

#include <string>

#include "desk/desk.h"

namespace telvar::host {

// For a window, which takes it over.
[[nodiscard]] HMENU makeMenuBar();

// Those that hold with the keyboard in the window, or in a form of the control's. The caller destroys it.
[[nodiscard]] HACCEL makeAccelerators(desk::Reach where);

// A menu that is about to open: what is enabled and ticked, and the recent files where it has them.
void showMenu(HMENU menu, const desk::Desk& desk);

// What the status line says of a command: the hint of its row, or a recent file's whole path.
[[nodiscard]] std::string hintOf(desk::Command command, const desk::Desk& desk);

}  // namespace telvar::host
