// Bytes as pairs of hexadecimal digits, capital letters, and back.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace telvar::radio {

[[nodiscard]] inline std::string hexadecimal(std::span<const std::uint8_t> bytes) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    text.reserve(bytes.size() * 2);
    for (const std::uint8_t byte : bytes) {
        text += digits[byte >> 4U];
        text += digits[byte & 0xFU];
    }
    return text;
}

// The value of one digit, 16 for anything else.
[[nodiscard]] constexpr unsigned digitValue(char digit) noexcept {
    if (digit >= '0' && digit <= '9') {
        return static_cast<unsigned>(digit - '0');
    }
    return digit >= 'A' && digit <= 'F' ? static_cast<unsigned>(digit - 'A') + 10 : 16;
}

// False where the text is not exactly so many pairs.
[[nodiscard]] inline bool readHexadecimal(std::string_view text, std::span<std::uint8_t> bytes) noexcept {
    if (text.size() != bytes.size() * 2) {
        return false;
    }
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const unsigned high = digitValue(text[2 * at]);
        const unsigned low = digitValue(text[2 * at + 1]);
        if (high > 15 || low > 15) {
            return false;
        }
        bytes[at] = static_cast<std::uint8_t>(high << 4U | low);
    }
    return true;
}

}  // namespace telvar::radio
