// A table from CSV, as csv_writer.h writes it or a spreadsheet has it. Where a row has a key's own value, that is the
// value; what the keys leave open comes from the cells, which are validated and stored as a paste into the grid does.
#pragma once

#include <expected>
#include <string>
#include <string_view>

#include "base/number_text.h"
#include "store/table_contents.h"

namespace telvar::interchange {

// All channels of the text, and of `around` everything else: the radio, which the validators ask too, the title and the
// members that this release does not know. A channel without a row is empty. A refusal is a phrase that names line,
// channel and column: "line 9: channel 7: "Scan": Invalid scan data value Scan".
[[nodiscard]] std::expected<store::TableContents, std::string>
readCsv(std::string_view text, const store::TableContents& around, const base::NumberFormat& format);

}  // namespace telvar::interchange
