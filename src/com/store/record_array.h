// The array that answers ChannelTable: 255 variants, each holding a record. It is the caller's own.
#pragma once

#include "com/kit/variant.h"
#include "com/store/shared_table.h"

namespace telvar::com {

// VT_ARRAY | VT_VARIANT.
[[nodiscard]] Variant recordArray(SharedTable& table);

}  // namespace telvar::com
