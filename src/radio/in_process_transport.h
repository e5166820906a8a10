// The way to a simulated radio in the same process and thread.
#pragma once

#include "radio/simulated_line.h"
#include "radio/transport.h"

namespace telvar::radio {

class InProcessTransport final : public Transport {
public:
    // All of them outlive the transport.
    InProcessTransport(SimulatedLine& line, LinkClock& clock, const os::Interrupt& interrupt) noexcept
        : line_(line), clock_(clock), interrupt_(interrupt) {}

    [[nodiscard]] std::expected<void, std::string> send(ByteView bytes) override;
    [[nodiscard]] std::expected<Bytes, std::string> receive(LinkTime until) override;

private:
    SimulatedLine& line_;
    LinkClock& clock_;
    const os::Interrupt& interrupt_;
};

}  // namespace telvar::radio
