#include "radio/radio_server.h"

#include <algorithm>
#include <array>

namespace telvar::radio {

namespace {

using Clock = std::chrono::steady_clock;

// Nothing is due; only the partner or the interrupt ends the wait.
constexpr std::chrono::milliseconds longWait{std::chrono::hours(1)};
constexpr std::chrono::milliseconds writeWait{5000};

[[nodiscard]] std::chrono::milliseconds waitFor(const SimulatedLine& line) {
    const auto next = line.next();
    if (!next) {
        return longWait;
    }
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(*next - Clock::now());
    return std::clamp(left, std::chrono::milliseconds(0), longWait);
}

}  // namespace

void serve(SimulatedLine& line, os::ByteStream& partner, const os::Interrupt& interrupt) {
    std::array<std::uint8_t, 4096> buffer{};
    // What was on its way to an earlier partner is not this one's.
    (void)line.takeReceived();
    while (!interrupt.raised()) {
        const auto got = partner.read(buffer, waitFor(line));
        if (!got) {
            return;
        }
        line.send(ByteView(buffer).first(*got), Clock::now());
        line.advance(Clock::now());
        if (const Bytes said = line.takeReceived(); !said.empty() && !partner.write(said, writeWait)) {
            return;
        }
    }
}

std::expected<void, std::string> serve(SimulatedLine& line, os::TcpListener& listener, const os::Interrupt& interrupt) {
    for (;;) {
        const auto partner = listener.accept(interrupt);
        if (!partner) {
            return std::unexpected(partner.error());
        }
        if (*partner == nullptr) {
            return {};
        }
        serve(line, **partner, interrupt);
    }
}

}  // namespace telvar::radio
