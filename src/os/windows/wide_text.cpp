#include "os/windows/wide_text.h"

#include <windows.h>

#include <array>

namespace telvar::os {

namespace {

// Room for the names of temporary and backup files within MAX_PATH.
constexpr std::size_t longPath = 230;

[[nodiscard]] std::wstring absolutePath(const std::wstring& path) {
    std::wstring absolute(::GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    absolute.resize(::GetFullPathNameW(path.c_str(), static_cast<DWORD>(absolute.size()), absolute.data(), nullptr));
    return absolute;
}

}  // namespace

std::wstring wide(std::string_view text) {
    const auto size = static_cast<int>(text.size());
    std::wstring result(static_cast<std::size_t>(::MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0)),
                        L'\0');
    ::MultiByteToWideChar(CP_UTF8, 0, text.data(), size, result.data(), static_cast<int>(result.size()));
    return result;
}

std::string narrow(std::wstring_view text) {
    const auto size = static_cast<int>(text.size());
    const auto needed = ::WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(needed), '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, text.data(), size, result.data(), needed, nullptr, nullptr);
    return result;
}

std::wstring widePath(const std::string& path) {
    auto plain = wide(path);
    if (plain.size() < longPath || plain.starts_with(L"\\\\?\\")) {
        return plain;
    }
    auto absolute = absolutePath(plain);
    return absolute.starts_with(L"\\\\") ? L"\\\\?\\UNC" + absolute.substr(1) : L"\\\\?\\" + absolute;
}

std::string errorText(unsigned long code) {
    std::array<wchar_t, 512> buffer{};
    const auto length = ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code, 0,
                                         buffer.data(), static_cast<DWORD>(buffer.size()), nullptr);
    std::string text = narrow({buffer.data(), length});
    while (text.ends_with('\n') || text.ends_with('\r') || text.ends_with(' ') || text.ends_with('.')) {
        text.pop_back();
    }
    return text.empty() ? "Error " + std::to_string(code) : text;
}

}  // namespace telvar::os
