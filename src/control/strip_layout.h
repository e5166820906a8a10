// Arranges the strip below the grid: channel select at the left, lock modes at the right of it. Everything is sized
// from measured text and stands on one line; where the width does not do, the lock modes go below without their frame.
// What is wider still is cut off at the edge and never overlaps.
#pragma once

#include "control/channel_information.h"

namespace telvar::control {

void layOutStrip(ChannelInformation& control, ui::Desktop& desktop, const ui::Rect& strip, int dpi);

}  // namespace telvar::control
