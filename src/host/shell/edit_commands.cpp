#include "host/shell/edit_commands.h"

#include <commctrl.h>

namespace telvar::host {

namespace {

// A text box has one step back, which is its step forward as well.
constexpr std::array<EditCommand, 6> commands{{
    {.command = COMMAND_UNDO, .standard = OLECMDID_UNDO, .message = WM_UNDO},
    {.command = COMMAND_REDO, .standard = OLECMDID_REDO, .message = WM_UNDO},
    {.command = COMMAND_COPY, .standard = OLECMDID_COPY, .message = WM_COPY},
    {.command = COMMAND_PASTE, .standard = OLECMDID_PASTE, .message = WM_PASTE},
    {.command = COMMAND_DELETE, .standard = OLECMDID_DELETE, .message = WM_CLEAR},
    {.command = COMMAND_SELECT_ALL, .standard = OLECMDID_SELECTALL, .message = EM_SETSEL, .lparam = -1},
}};

}  // namespace

const std::array<EditCommand, 6>& editCommands() noexcept { return commands; }

HWND focusedTextBox() noexcept {
    const HWND focus = GetFocus();
    std::array<wchar_t, 16> name{};
    GetClassNameW(focus, name.data(), static_cast<int>(name.size()));
    return CompareStringOrdinal(name.data(), -1, WC_EDITW, -1, TRUE) == CSTR_EQUAL ? focus : nullptr;
}

}  // namespace telvar::host
