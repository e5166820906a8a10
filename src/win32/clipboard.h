// Text on the system's clipboard, as UTF-8 here.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace telvar::win32 {

// Nothing where the clipboard holds no text. Waits a fifth of a second at most for another program to close it, then
// throws base::Failure.
[[nodiscard]] std::optional<std::string> readClipboardText(HWND owner);
// Text in a block of CF_UNICODETEXT. Some programs leave the final zero out, so the block's size is the other limit.
[[nodiscard]] std::optional<std::string> textOfClipboardBlock(HGLOBAL block);

void writeClipboardText(HWND owner, const std::string& text);

}  // namespace telvar::win32
