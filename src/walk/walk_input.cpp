#include "walk/walk_input.h"

#include "com/kit/failure.h"
#include "walk/keyboard.h"
#include "walk/walk.h"
#include "win/global_memory.h"

namespace telvar::walk {

void type(std::wstring_view text) {
    constexpr int unknown = -1;
    constexpr BYTE shifted = 1;
    for (const wchar_t character : text) {
        const SHORT key = VkKeyScanW(character);
        if (key == unknown) {
            continue;
        }
        if ((HIBYTE(key) & shifted) != 0) {
            press({VK_SHIFT, LOBYTE(key)});
        } else {
            press({LOBYTE(key)});
        }
    }
}

void typeOver(std::wstring_view text) {
    press({VK_HOME});
    press({VK_SHIFT, VK_END});
    type(text);
}

void setClipboard(HWND owner, std::wstring_view text) {
    win::GlobalMemory block = win::textBlock(text);
    if (!block || !OpenClipboard(owner)) {
        throw com::ComFailure(E_FAIL, "The clipboard cannot be used");
    }
    EmptyClipboard();
    // The clipboard owns the memory from now on.
    SetClipboardData(CF_UNICODETEXT, block.release());
    CloseClipboard();
}

std::wstring focusedText() {
    std::wstring text(64, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(GetFocus(), text.data(), static_cast<int>(text.size()))));
    return text;
}

bool dialogTitled(std::wstring_view title) {
    std::wstring text(64, L'\0');
    const HWND dialog = Walk::dialog();
    text.resize(static_cast<std::size_t>(GetWindowTextW(dialog, text.data(), static_cast<int>(text.size()))));
    return dialog != nullptr && text == title;
}

bool dialogSays(std::wstring_view text) {
    const HWND dialog = Walk::dialog();
    return dialog != nullptr && Walk::textOf(dialog).find(text) != std::wstring::npos;
}

}  // namespace telvar::walk
