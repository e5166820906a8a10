// The event that is set while an interrupt is raised, and the wait that looks at it.
#pragma once

#include <chrono>
#include <cstdint>

#include "os/interrupt.h"
#include "win/handle.h"

namespace telvar::os {

struct Interrupt::Handle {
    win::Handle event;
};

enum class Waited : std::uint8_t { Ready, TimedOut, Interrupted };

// Until the event is set or the interrupt is raised.
[[nodiscard]] Waited waitForEvent(HANDLE event, const Interrupt& interrupt,
                                  std::chrono::steady_clock::time_point until);

// Not set; manual ones stay set until they are reset. Throws base::Failure.
[[nodiscard]] win::Handle newEvent();

}  // namespace telvar::os
