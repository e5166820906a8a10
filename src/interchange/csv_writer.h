// A table as CSV for spreadsheets: one row for every channel that differs from an empty one in any key, first the 27
// cells that the control shows, then every key by name. The cells are for people, the keys carry the table whole. Cells
// that cannot be shown are empty.
#pragma once

#include <expected>
#include <string>

#include "base/number_text.h"
#include "model/data_store.h"

namespace telvar::interchange {

// The heading of the channel numbers; the grid's own corner cell is empty.
inline constexpr std::string_view channelHeading = "Channel";

// UTF-8, comma-separated, lines end in CR LF, the first one holds the headings. A failure is a phrase that names the
// channel and the key: "channel 12: "TxLevel" must be a whole number, not 2.5".
[[nodiscard]] std::expected<std::string, std::string> csvText(model::DataStore& store,
                                                              const base::NumberFormat& format);

}  // namespace telvar::interchange
