#include "win32/convert.h"

#include "win/text.h"

namespace telvar::win32 {

std::string windowText(HWND window) {
    const int length = GetWindowTextLengthW(window);
    if (length <= 0) {
        return {};
    }
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), length + 1)));
    return win::narrow(text);
}

}  // namespace telvar::win32
