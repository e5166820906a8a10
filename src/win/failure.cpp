#include "win/failure.h"

#include <array>

#include "win/text.h"

namespace telvar::win {

namespace {

// An HRESULT is known by its hexadecimal digits, another code by its number.
[[nodiscard]] std::string numberOf(DWORD code) {
    if (HRESULT_SEVERITY(code) != SEVERITY_ERROR) {
        return "Error " + std::to_string(code);
    }
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text = "Error 0x";
    for (unsigned shift = 32; shift != 0;) {
        shift -= 4;
        text += digits[(code >> shift) & 0xFU];
    }
    return text;
}

}  // namespace

std::string_view withoutFinalStop(std::string_view text) noexcept {
    const std::size_t last = text.find_last_not_of(" .\r\n");
    return text.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

std::string errorText(DWORD code) {
    std::array<wchar_t, 512> buffer{};
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code, 0,
                                        buffer.data(), static_cast<DWORD>(buffer.size()), nullptr);
    const std::string text = narrow({buffer.data(), length});
    if (const std::string_view phrase = withoutFinalStop(text); !phrase.empty()) {
        return std::string(phrase);
    }
    return numberOf(code);
}

}  // namespace telvar::win
