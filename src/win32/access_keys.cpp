#include "win32/access_keys.h"

#include <windows.h>

#include "win/text.h"

namespace telvar::win32 {

namespace {

wchar_t upper(wchar_t character) noexcept {
    CharUpperBuffW(&character, 1);
    return character;
}

}  // namespace

bool hasAccessKey(std::string_view caption, wchar_t character) {
    const std::wstring wide = win::wide(caption);
    for (std::size_t at = 0; at + 1 < wide.size(); ++at) {
        if (wide[at] == L'&') {
            ++at;
            if (wide[at] != L'&') {
                return upper(wide[at]) == upper(character);
            }
        }
    }
    return false;
}

}  // namespace telvar::win32
