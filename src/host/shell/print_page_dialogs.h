// Page set-up: the program's own dialog, for computers without a printer, where the system's does not open; and what
// the program adds to the system's.
#pragma once

#include <windows.h>

#include "desk/page_setup.h"

namespace telvar::host {

// False when cancelled.
[[nodiscard]] bool askPageSetup(HWND owner, desk::PageSetup& setup);

// A hook of the system's dialog, whose lCustData is a bool*: adds the box "Only channels in use", and leaves its state
// there when the user accepts.
UINT_PTR CALLBACK addChannelChoice(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam) noexcept;

}  // namespace telvar::host
