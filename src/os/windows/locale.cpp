#include "os/locale.h"

#include <windows.h>

#include <algorithm>
#include <array>

#include "win/text.h"

namespace telvar::os {

namespace {

[[nodiscard]] std::optional<base::NumberFormat> formatOf(const wchar_t* name) {
    std::array<wchar_t, 8> separator{};
    const auto length = ::GetLocaleInfoEx(name, LOCALE_SDECIMAL, separator.data(), static_cast<int>(separator.size()));
    if (length == 0) {
        return std::nullopt;
    }
    // The length counts the final zero.
    return length == 2 && separator[0] < 128 ? base::NumberFormat{.decimalSeparator = static_cast<char>(separator[0])}
                                             : base::NumberFormat{};
}

}  // namespace

base::NumberFormat userNumberFormat() { return formatOf(LOCALE_NAME_USER_DEFAULT).value_or(base::NumberFormat{}); }

std::optional<base::NumberFormat> numberFormatOf(const std::string& locale) {
    if (locale.empty()) {
        return std::nullopt;
    }
    auto name = win::wide(locale);
    std::ranges::replace(name, L'_', L'-');
    return ::IsValidLocaleName(name.c_str()) != 0 ? formatOf(name.c_str()) : std::nullopt;
}

}  // namespace telvar::os
