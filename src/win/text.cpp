#include "win/text.h"

#include <windows.h>

#include "base/failure.h"

namespace telvar::win {

namespace {

// The system's functions count in int.
template <class View>
[[nodiscard]] int lengthOf(View text) {
    constexpr std::size_t limit = 0x3FFFFFFF;
    if (text.size() > limit) {
        throw base::Failure("The text is too long");
    }
    return static_cast<int>(text.size());
}

}  // namespace

std::wstring wide(std::string_view text) {
    if (text.empty()) {
        return {};
    }
    const int length = lengthOf(text);
    const int needed = MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0);
    std::wstring result(static_cast<std::size_t>(needed), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), length, result.data(), needed);
    return result;
}

std::string narrow(std::wstring_view text) {
    if (text.empty()) {
        return {};
    }
    const int length = lengthOf(text);
    const int needed = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(needed), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, result.data(), needed, nullptr, nullptr);
    return result;
}

}  // namespace telvar::win
