// The way to the radio that the settings name, kept open between exchanges: transport, session, trace, and the
// simulated radio where that is chosen.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>

#include "os/interrupt.h"
#include "radio/link_clock.h"
#include "radio/link_session.h"
#include "radio/link_settings.h"
#include "radio/simulated_line.h"
#include "radio/simulated_radio.h"
#include "radio/trace.h"
#include "radio/transport.h"

namespace telvar::radio {

class LinkConnection {
public:
    // Both outlive the connection.
    LinkConnection(LinkClock& clock, const os::Interrupt& interrupt);

    // Closes what other settings had opened. The simulated radio stays the same as long as its file does, and keeps
    // other radios from that file while it is the one that is talked to; the plan of its faults begins anew whenever
    // it is another one.
    void configure(const LinkSettings& settings);
    [[nodiscard]] const LinkSettings& settings() const noexcept { return settings_; }

    // A new session, which ends whatever the radio was told to begin before. A partner is not waited for longer than an
    // answer.
    [[nodiscard]] LinkResult<LinkSession*> fresh(const Patience& patience = usualPatience);
    // The open session, or a new one.
    [[nodiscard]] LinkResult<LinkSession*> ready(const Patience& patience = usualPatience);

    [[nodiscard]] bool isOpen() const noexcept { return session_ && session_->isOpen(); }
    // Of the radio that answered last.
    [[nodiscard]] const Identity& identity() const noexcept { return identity_; }

    // Null before the first session with the simulated radio.
    [[nodiscard]] SimulatedLine* simulatedLine() noexcept { return line_ ? &*line_ : nullptr; }
    [[nodiscard]] SimulatedRadio* simulatedRadio() noexcept { return radio_.get(); }

private:
    [[nodiscard]] LinkResult<void> openTrace();
    [[nodiscard]] LinkResult<void> openTransport(const Patience& patience);
    [[nodiscard]] OpenedTransport transport(std::chrono::milliseconds connectWait);
    [[nodiscard]] OpenedTransport simulatedTransport();
    [[nodiscard]] std::uint16_t nextNumber() noexcept;

    LinkClock& clock_;
    const os::Interrupt& interrupt_;
    LinkSettings settings_;
    std::unique_ptr<SimulatedRadio> radio_;
    std::optional<SimulatedLine> line_;
    std::optional<Trace> trace_;
    std::unique_ptr<Transport> transport_;
    std::optional<LinkSession> session_;
    Identity identity_;
    std::uint16_t number_;
};

}  // namespace telvar::radio
