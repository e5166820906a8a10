#include "store/json_text.h"

#include <array>
#include <cstddef>
#include <cstdio>

namespace telvar::store {

namespace {

struct LeadByte {
    std::size_t length;    // of the whole character, 0 for a byte that begins none
    unsigned char lowest;  // of the second byte
    unsigned char highest;
};

[[nodiscard]] constexpr LeadByte leadByte(unsigned char byte) noexcept {
    if (byte < 0x80) {
        return {1, 0, 0};
    }
    if (byte < 0xC2 || byte > 0xF4) {
        return {0, 0, 0};
    }
    if (byte < 0xE0) {
        return {2, 0x80, 0xBF};
    }
    if (byte < 0xF0) {
        // E0 would be overlong below A0, ED a surrogate above 9F.
        return {3, static_cast<unsigned char>(byte == 0xE0 ? 0xA0 : 0x80),
                static_cast<unsigned char>(byte == 0xED ? 0x9F : 0xBF)};
    }
    return {4, static_cast<unsigned char>(byte == 0xF0 ? 0x90 : 0x80),
            static_cast<unsigned char>(byte == 0xF4 ? 0x8F : 0xBF)};
}

// Length of the well-formed character that the text begins with, 0 where there is none.
[[nodiscard]] std::size_t characterLength(std::string_view text) noexcept {
    const auto byteAt = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    const auto lead = leadByte(byteAt(0));
    if (lead.length <= 1) {
        return lead.length;
    }
    if (text.size() < lead.length || byteAt(1) < lead.lowest || byteAt(1) > lead.highest) {
        return 0;
    }
    for (std::size_t at = 2; at < lead.length; ++at) {
        if ((byteAt(at) & 0xC0U) != 0x80U) {
            return 0;
        }
    }
    return lead.length;
}

void appendEscaped(std::string& result, char c) {
    switch (c) {
    case '"':
        result += "\\\"";
        return;
    case '\\':
        result += "\\\\";
        return;
    case '\n':
        result += "\\n";
        return;
    case '\r':
        result += "\\r";
        return;
    case '\t':
        result += "\\t";
        return;
    default:
        break;
    }
    if (static_cast<unsigned char>(c) >= 0x20) {
        result += c;
        return;
    }
    std::array<char, 8> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "\\u%04x", static_cast<unsigned>(c));
    result += buffer.data();
}

}  // namespace

bool isUtf8(std::string_view text) noexcept {
    while (!text.empty()) {
        const auto length = characterLength(text);
        if (length == 0) {
            return false;
        }
        text.remove_prefix(length);
    }
    return true;
}

std::string jsonQuoted(std::string_view text) {
    std::string result = "\"";
    while (!text.empty()) {
        const auto length = characterLength(text);
        if (length == 1) {
            appendEscaped(result, text[0]);
        } else if (length == 0) {
            result += "\xEF\xBF\xBD";
        } else {
            result += text.substr(0, length);
        }
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return result + '"';
}

void JsonLine::separate() {
    if (!first_ && !afterName_) {
        text_ += ", ";
    }
    first_ = false;
    afterName_ = false;
}

bool JsonLine::scalar(const JsonScalar& value) {
    separate();
    text_ += value.type == JsonType::Text ? jsonQuoted(value.text) : std::string(value.text);
    return true;
}

bool JsonLine::open(JsonType type) {
    separate();
    text_ += type == JsonType::Object ? '{' : '[';
    first_ = true;
    return ++depth_ <= deepest;
}

bool JsonLine::close(JsonType type) {
    text_ += type == JsonType::Object ? '}' : ']';
    --depth_;
    first_ = false;
    return true;
}

bool JsonLine::name(std::string_view name) {
    separate();
    text_ += jsonQuoted(name) + ": ";
    afterName_ = true;
    return true;
}

}  // namespace telvar::store
