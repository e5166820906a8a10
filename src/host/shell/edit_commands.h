// The commands of the Edit menu: which standard command of the control each one is, and what it means while the user
// types into a text box inside the control.
#pragma once

#include <windows.h>

#include <docobj.h>

#include <array>

#include "host/shell/resource.h"

namespace telvar::host {

struct EditCommand {
    int command = 0;                    // of the menu
    OLECMDID standard = OLECMDID_COPY;  // of the control
    // What a text box is sent instead.
    UINT message = WM_NULL;
    WPARAM wparam = 0;
    LPARAM lparam = 0;
};

[[nodiscard]] const std::array<EditCommand, 6>& editCommands() noexcept;

// The text box that has the keyboard focus, null when something else has it.
[[nodiscard]] HWND focusedTextBox() noexcept;

}  // namespace telvar::host
