// Whole tables over an open session: reading, writing and comparing, with progress. It knows no files and no store.
#pragma once

#include <functional>

#include "radio/link_session.h"
#include "radio/table_image.h"

namespace telvar::radio {

// The part of a transfer that is done, 0 to 1; called after every frame.
using PartDone = std::function<void(double)>;

[[nodiscard]] LinkResult<RadioState> readState(LinkSession& session, const Patience& patience = usualPatience);

// Every record, checked against the checksum that the radio itself has of its table.
[[nodiscard]] LinkResult<TableImage> readTable(LinkSession& session, const PartDone& done);

// How far a write has got; it decides what may be said about the radio's table after a failure.
enum class WriteStage : std::uint8_t {
    NotBegun,   // the radio was not told
    Sending,    // the former table is in force
    Committing  // either table may be in force
};

// Sends a table and puts it in force. `stage` follows what is done, also when it fails.
[[nodiscard]] LinkResult<void> writeTable(LinkSession& session, const TableImage& image, const PartDone& done,
                                          WriteStage& stage);

}  // namespace telvar::radio
