// The wait before every use of the radio link: while the host's diagnostics or an exchange keep it busy, the message
// loop goes on.
#pragma once

#include <cstdint>

#include "session/session.h"

namespace telvar::transfer {

// Lets pending work run, then reads CommsBusy, and again until it is False; there is no time-out. The store is asked
// for each time, since anything may happen inside: a store that fails or is missing, and a control that is closed, end
// the wait, and that reaches the caller. Answers False when the message loop is quitting, be the link quiet or not.
[[nodiscard]] bool waitForQuietLink(const session::Session& session);

// What begins now, by its task code, for whoever shows the progress.
void announce(const session::Session& session, std::int16_t task);

}  // namespace telvar::transfer
