#include "os/locale.h"

#include <langinfo.h>

#include <algorithm>
#include <clocale>

namespace telvar::os {

namespace {

// The C library counts a missing locale as a failure, so the user's own may have none.
[[nodiscard]] std::optional<base::NumberFormat> formatOf(const std::string& name) {
    const locale_t locale = ::newlocale(LC_NUMERIC_MASK, name.c_str(), static_cast<locale_t>(nullptr));
    if (locale == static_cast<locale_t>(nullptr)) {
        return std::nullopt;
    }
    const std::string separator = ::nl_langinfo_l(RADIXCHAR, locale);
    ::freelocale(locale);
    return separator.size() == 1 ? base::NumberFormat{.decimalSeparator = separator[0]} : base::NumberFormat{};
}

}  // namespace

base::NumberFormat userNumberFormat() { return formatOf("").value_or(base::NumberFormat{}); }

std::optional<base::NumberFormat> numberFormatOf(const std::string& locale) {
    if (locale.empty()) {
        return std::nullopt;
    }
    std::string name = locale;
    std::ranges::replace(name, '-', '_');
    for (const auto* encoding : {".UTF-8", ""}) {
        if (auto format = formatOf(name + encoding)) {
            return format;
        }
    }
    return std::nullopt;
}

}  // namespace telvar::os
