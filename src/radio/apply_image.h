// Puts a loaded table into a data store: all of it or nothing.
#pragma once

#include "model/data_store.h"
#include "radio/table_image.h"

namespace telvar::radio {

// Writes what differs, then marks the store as modified. A store that fails on the way gets its own values back; the
// base::Failure says what it said, and whether that succeeded.
void applyImage(model::DataStore& store, const TableImage& image);

}  // namespace telvar::radio
