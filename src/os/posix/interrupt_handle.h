// The descriptor that becomes readable when an interrupt is raised, and the wait that looks at it.
#pragma once

#include <chrono>
#include <cstdint>

#include "os/interrupt.h"
#include "os/posix/descriptor.h"

namespace telvar::os {

struct Interrupt::Handle {
    Descriptor event;
};

enum class Waited : std::uint8_t { Ready, TimedOut, Interrupted };

// Until the descriptor has one of the poll events, or an error, or the interrupt is raised.
[[nodiscard]] Waited waitForDescriptor(int descriptor, short events, const Interrupt& interrupt,
                                       std::chrono::steady_clock::time_point until);

}  // namespace telvar::os
