// What the walk's steps do with keyboard and clipboard, and how they look at dialogs.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace telvar::walk {

// Keys as the present keyboard layout has them; a character that it does not have is left out.
void type(std::wstring_view text);
// Over whatever the field holds.
void typeOver(std::wstring_view text);

// Throws com::ComFailure where another program does not let go of the clipboard.
void setClipboard(HWND owner, std::wstring_view text);

// Of the window with the focus.
[[nodiscard]] std::wstring focusedText();
// Whether the topmost dialog has that title.
[[nodiscard]] bool dialogTitled(std::wstring_view title);
// Whether the topmost dialog says that somewhere.
[[nodiscard]] bool dialogSays(std::wstring_view text);

}  // namespace telvar::walk
