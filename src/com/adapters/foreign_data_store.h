// Any automation object as a data store: the control reads a host's store late-bound and by name, whatever class it is.
// `ChannelTable` may be an array of objects or of variants, by value or by reference, an object indexed by its default
// member, a script's own array, or a property with one argument; it is asked for again for every single value, and no
// element of it is kept between two calls.
#pragma once

#include "com/kit/automation.h"
#include "com/kit/pointer.h"
#include "model/data_store.h"

namespace telvar::com {

// Adapts a store; null for a null object. The same object may be adapted any number of times.
[[nodiscard]] model::DataStorePointer adaptDataStore(IDispatch* store);

}  // namespace telvar::com
