// Asks where the radio is, and how the simulated one is to misbehave.
#pragma once

#include <windows.h>

#include <functional>
#include <span>
#include <string>

#include "desk/window.h"

namespace telvar::host {

// Each takes the user's choice, or throws with the sentence that says why it cannot be taken.
using TakeConnection = std::function<void(const desk::Connection& choice)>;
using TakeChoice = std::function<void(const std::string& choice)>;

// `note` is shown below the fields. Whether a choice was taken.
[[nodiscard]] bool askConnection(HWND owner, const desk::Connection& present, const std::string& note,
                                 const TakeConnection& take);
// Faults as the radio link has them.
[[nodiscard]] bool askFaults(HWND owner, std::span<const std::string> known, const std::string& present,
                             const TakeChoice& take);

}  // namespace telvar::host
