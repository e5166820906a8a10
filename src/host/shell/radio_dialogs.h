// Asks where the radio is, and how the simulated one is to misbehave.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace telvar::host {

struct Connection {
    std::wstring address;  // as the radio link has them: "simulated", "tcp:HOST:PORT", "serial:PORT,SPEED"
    std::wstring trace;    // the file that every frame goes to; empty for none
};

// Each takes the user's choice, or throws with the sentence that says why it cannot be taken.
using TakeConnection = std::function<void(const Connection& choice)>;
using TakeChoice = std::function<void(const std::wstring& choice)>;

// `note` is shown below the fields. Whether a choice was taken.
[[nodiscard]] bool askConnection(HWND owner, const Connection& present, const std::wstring& note,
                                 const TakeConnection& take);
// Faults as the radio link has them.
[[nodiscard]] bool askFaults(HWND owner, const std::wstring& present, const TakeChoice& take);

}  // namespace telvar::host
