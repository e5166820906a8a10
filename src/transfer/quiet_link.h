// The wait before every use of the radio link: while the host's diagnostics or an exchange keep it busy, the message
// loop goes on.
#pragma once

#include <functional>

#include "model/data_store.h"
#include "ui/desktop.h"

namespace telvar::transfer {

// Lets pending work run, then reads CommsBusy, and again until it is False; there is no time-out. `store` answers the
// store of the moment, since anything may happen inside; an exception of it ends the wait and reaches the caller.
// Answers False when the message loop is quitting, be the link quiet or not.
[[nodiscard]] bool waitForQuietLink(ui::Desktop& desktop, const std::function<model::DataStorePointer()>& store);

}  // namespace telvar::transfer
