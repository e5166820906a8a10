#include "win32/clipboard.h"

#include <string_view>

#include "base/failure.h"
#include "base/pinned.h"
#include "win/global_memory.h"
#include "win/text.h"

namespace telvar::win32 {

namespace {

class OpenClipboardGuard : private base::Pinned {
public:
    explicit OpenClipboardGuard(HWND owner) {
        // Nothing tells when the clipboard becomes free.
        constexpr int attempts = 20;
        constexpr DWORD pause = 10;
        for (int attempt = 0; OpenClipboard(owner) == FALSE; ++attempt) {
            if (attempt == attempts) {
                throw base::Failure("The clipboard is in use by another program");
            }
            Sleep(pause);
        }
    }
    ~OpenClipboardGuard() { CloseClipboard(); }
};

}  // namespace

std::optional<std::string> readClipboardText(HWND owner) {
    if (IsClipboardFormatAvailable(CF_UNICODETEXT) == FALSE) {
        return std::nullopt;
    }
    const OpenClipboardGuard open(owner);
    const HANDLE data = GetClipboardData(CF_UNICODETEXT);
    if (data == nullptr) {
        return std::nullopt;
    }
    return textOfClipboardBlock(data);
}

std::optional<std::string> textOfClipboardBlock(HGLOBAL block) {
    const win::Locked<wchar_t> locked(block);
    if (locked.get() == nullptr) {
        return std::nullopt;
    }
    const std::wstring_view text(locked.get(), GlobalSize(block) / sizeof(wchar_t));
    return win::narrow(text.substr(0, text.find(L'\0')));
}

void writeClipboardText(HWND owner, const std::string& text) {
    win::GlobalMemory block = win::textBlock(win::wide(text));
    if (!block) {
        throw base::Failure("The text is too long for the clipboard");
    }
    const OpenClipboardGuard open(owner);
    if (EmptyClipboard() == FALSE) {
        throw base::Failure("The clipboard could not be emptied");
    }
    if (SetClipboardData(CF_UNICODETEXT, block.get()) == nullptr) {
        throw base::Failure("The clipboard did not take the text");
    }
    // The clipboard's from now on.
    (void)block.release();
}

}  // namespace telvar::win32
