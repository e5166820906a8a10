// Any automation object as a radio link. Texts and flags are passed by reference, as the published operations have
// them.
#pragma once

#include "com/kit/automation.h"
#include "com/kit/pointer.h"
#include "model/radio_link.h"

namespace telvar::com {

// Adapts a link; null for a null object.
[[nodiscard]] model::RadioLinkPointer adaptRadioLink(IDispatch* link);

}  // namespace telvar::com
