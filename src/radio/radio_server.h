// A simulated radio at the end of a stream, for programs that are radios: serves one partner after the other.
#pragma once

#include <expected>
#include <string>

#include "os/byte_stream.h"
#include "os/interrupt.h"
#include "os/tcp.h"
#include "radio/simulated_line.h"

namespace telvar::radio {

// Until the partner leaves or the interrupt is raised; faults that are over stay over for the next partner.
void serve(SimulatedLine& line, os::ByteStream& partner, const os::Interrupt& interrupt);

// Whoever connects, one at a time, until the interrupt is raised. The error is the listener's.
[[nodiscard]] std::expected<void, std::string> serve(SimulatedLine& line, os::TcpListener& listener,
                                                     const os::Interrupt& interrupt);

}  // namespace telvar::radio
