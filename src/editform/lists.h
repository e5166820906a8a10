// What the form's lists hold. Their order fixes what a stored index means.
#pragma once

#include "base/number_text.h"
#include "editform/channel_edit_controls.h"
#include "model/data_store.h"

namespace telvar::editform {

inline constexpr const char* disabledTone = "Disabled";
inline constexpr const char* multipleTones = "Multiple";

// Everything that does not depend on a store.
void fillFixedLists(ChannelEditControls& controls);

// The store's CTCSS tones, in the reverse of its table's order. Fails as the store fails, and has then changed nothing.
void fillToneLists(ChannelEditControls& controls, model::DataStore& store, const base::NumberFormat& format);

}  // namespace telvar::editform
