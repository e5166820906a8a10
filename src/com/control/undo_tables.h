// The private tables behind undo and redo.
#pragma once

#include "model/data_store.h"

namespace telvar::com {

// A new object of the registered data-store class; null where there is none or it cannot be made.
[[nodiscard]] model::DataStorePointer makeUndoTable();

}  // namespace telvar::com
