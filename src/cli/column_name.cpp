#include "cli/column_name.h"

#include <charconv>

#include "base/text.h"
#include "editing/columns.h"

namespace telvar::cli {

std::optional<std::int16_t> columnNamed(std::string_view text) {
    for (const auto& column : editing::columns) {
        if (!column.header.empty() && base::equalIgnoringCase(column.header, text)) {
            return column.number;
        }
    }
    std::int16_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool whole = error == std::errc() && end == text.data() + text.size();
    return whole ? std::optional(number) : std::nullopt;
}

}  // namespace telvar::cli
