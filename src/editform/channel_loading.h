// Fills the form's controls from a channel's values.
#pragma once

#include "editform/channel_edit_controls.h"
#include "editform/edited_channel.h"
#include "editform/levels.h"
#include "editform/mode_rules.h"

namespace telvar::editform {

// Value by value, without the rules by which a control changes others; at the end the RF mode is derived and applied.
// Fails as the store fails, or where a value is not of its kind; the controls after that are as they were.
void loadControls(ChannelEditControls& controls, Levels& levels, ModeRules& rules, const EditedChannel& channel);

}  // namespace telvar::editform
