// Asks where the radio is, and how the simulated one is to misbehave.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace telvar::host {

// Takes the user's choice; throws with the sentence that says why it cannot be taken.
using TakeChoice = std::function<void(const std::wstring& choice)>;

// An address as the radio link has them: "simulated", "tcp:HOST:PORT", "serial:PORT,SPEED". `note` is shown below it.
// Whether a choice was taken.
[[nodiscard]] bool askConnection(HWND owner, const std::wstring& present, const std::wstring& note,
                                 const TakeChoice& take);
// Faults as the radio link has them.
[[nodiscard]] bool askFaults(HWND owner, const std::wstring& present, const TakeChoice& take);

}  // namespace telvar::host
