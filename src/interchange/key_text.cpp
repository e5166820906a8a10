#include "interchange/key_text.h"

#include <algorithm>
#include <optional>

#include "base/conversion.h"
#include "base/text.h"
#include "store/json_text.h"
#include "store/table_values.h"

namespace telvar::interchange {

namespace {

constexpr std::size_t codeLength = 4;

[[nodiscard]] bool isHexadecimal(char c) noexcept {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

[[nodiscard]] std::optional<bool> truthIn(std::string_view text) {
    const auto word = base::trimmed(text);
    const auto isOneOf = [&](auto... names) { return (base::equalIgnoringCase(word, names) || ...); };
    if (isOneOf("true", "yes", "1", "-1")) {
        return true;
    }
    if (isOneOf("false", "no", "0")) {
        return false;
    }
    return std::nullopt;
}

// The number with "." as separator, nothing where the text is none. One that is too large passes; its kind says so.
[[nodiscard]] std::optional<std::string> plainNumber(std::string_view text, const base::NumberFormat& format) {
    if (const auto number = base::readDouble(text, format);
        !number && number.error() == base::NumberError::NotANumber) {
        return std::nullopt;
    }
    std::string plain(base::trimmed(text));
    std::ranges::replace(plain, format.decimalSeparator, '.');
    return plain;
}

template <class Kind>
[[nodiscard]] std::expected<base::Value, Refusal> refused(Kind kind, std::string_view text) {
    return std::unexpected(store::refusalOf(kind, quotedStart(text)));
}

template <class Kind>
[[nodiscard]] std::expected<base::Value, Refusal> readTruth(Kind kind, std::string_view text) {
    const auto truth = truthIn(text);
    return truth ? std::expected<base::Value, Refusal>(*truth) : refused(kind, text);
}

template <class Kind>
[[nodiscard]] std::expected<base::Value, Refusal> readNumber(Kind kind, std::string_view text,
                                                             const base::NumberFormat& format) {
    const auto number = plainNumber(text, format);
    if (!number) {
        return refused(kind, text);
    }
    return store::readValue(kind, {.type = store::JsonType::Number, .text = *number, .truth = false});
}

}  // namespace

std::expected<base::Value, Refusal> readKeyText(model::KeyKind kind, std::string_view text,
                                                const base::NumberFormat& format) {
    if (kind == model::KeyKind::Boolean) {
        return readTruth(kind, text);
    }
    if (kind != model::KeyKind::Code) {
        return readNumber(kind, text, format);
    }
    if (text.size() != codeLength || !std::ranges::all_of(text, isHexadecimal)) {
        return std::unexpected("must be four hexadecimal digits, not " + quotedStart(text));
    }
    return base::textValue(text);
}

std::expected<base::Value, Refusal> readMemberText(model::MemberKind kind, std::string_view text,
                                                   const base::NumberFormat& format) {
    if (kind == model::MemberKind::Boolean) {
        return readTruth(kind, text);
    }
    if (kind != model::MemberKind::Text) {
        return readNumber(kind, text, format);
    }
    if (!store::isUtf8(text)) {
        return std::unexpected("must be text in UTF-8");
    }
    return base::textValue(text);
}

std::expected<std::string, Refusal> keyText(model::KeyKind kind, const base::Value& value,
                                            const base::NumberFormat& format) {
    if (kind == model::KeyKind::Code) {
        return base::toText(value);
    }
    auto text = store::writeValue(kind, value);
    if (text) {
        std::ranges::replace(*text, '.', format.decimalSeparator);
    }
    return text;
}

std::string quotedStart(std::string_view text) {
    constexpr std::size_t longest = 40;
    if (text.size() <= longest) {
        return store::jsonQuoted(text);
    }
    const auto continues = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; };
    auto end = longest;
    while (end > 0 && continues(text[end])) {
        --end;
    }
    return store::jsonQuoted(text.substr(0, end)) + "...";
}

}  // namespace telvar::interchange
