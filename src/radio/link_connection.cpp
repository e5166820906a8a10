#include "radio/link_connection.h"

#include <algorithm>
#include <random>
#include <utility>

#include "os/serial_port.h"
#include "os/tcp.h"
#include "radio/in_process_transport.h"
#include "radio/stream_transport.h"

namespace telvar::radio {

namespace {

constexpr std::chrono::milliseconds longestConnectWait{3000};

[[nodiscard]] LinkFailure localFailure(const std::string& what) {
    return {.cause = LinkFailure::Cause::Local, .what = what};
}

}  // namespace

// Two programs that talk to one radio in turn should not begin with the same number.
LinkConnection::LinkConnection(LinkClock& clock, const os::Interrupt& interrupt)
    : clock_(clock), interrupt_(interrupt), number_(static_cast<std::uint16_t>(std::random_device()())) {}

void LinkConnection::configure(const LinkSettings& settings) {
    if (settings == settings_) {
        return;
    }
    session_.reset();
    transport_.reset();
    line_.reset();
    // A file is left to other radios while it is not needed; without one, what the radio holds would be lost.
    const bool left = settings.address.way != Address::Way::Simulated && !settings_.stateFile.empty();
    if (left || settings.stateFile != settings_.stateFile) {
        radio_.reset();
    }
    if (settings.traceFile != settings_.traceFile) {
        trace_.reset();
    }
    settings_ = settings;
}

LinkResult<LinkSession*> LinkConnection::ready(const Patience& patience) {
    return isOpen() ? LinkResult<LinkSession*>(&*session_) : fresh(patience);
}

LinkResult<LinkSession*> LinkConnection::fresh(const Patience& patience) {
    // What an exchange that failed has left on the way is not waited for.
    if (session_ && !session_->isOpen()) {
        session_.reset();
        transport_.reset();
    }
    if (const auto opened = openTrace(); !opened) {
        return std::unexpected(opened.error());
    }
    if (const auto opened = openTransport(patience); !opened) {
        return std::unexpected(opened.error());
    }
    session_.emplace(*transport_, clock_, interrupt_, trace_ ? &*trace_ : nullptr);
    auto identity = session_->greet(nextNumber(), patience);
    if (!identity) {
        return std::unexpected(identity.error());
    }
    identity_ = *std::move(identity);
    return &*session_;
}

LinkResult<void> LinkConnection::openTrace() {
    if (settings_.traceFile.empty() || trace_) {
        return {};
    }
    auto opened = Trace::open(settings_.traceFile, clock_.now());
    if (!opened) {
        return std::unexpected(
            localFailure("The trace cannot be written (" + opened.error().path + ": " + opened.error().what + ")"));
    }
    trace_.emplace(*std::move(opened));
    trace_->note(textOf(settings_.address), clock_.now());
    return {};
}

LinkResult<void> LinkConnection::openTransport(const Patience& patience) {
    if (transport_) {
        return {};
    }
    auto opened = transport(std::min(longestConnectWait, patience.attempts * patience.wait));
    if (!opened) {
        if (interrupt_.raised()) {
            return std::unexpected(
                LinkFailure{.cause = LinkFailure::Cause::Aborted, .what = "The exchange was aborted"});
        }
        return std::unexpected(LinkFailure{.cause = LinkFailure::Cause::Unreachable,
                                           .what = "The radio cannot be reached at " + textOf(settings_.address) +
                                                   " (" + opened.error() + ")"});
    }
    transport_ = *std::move(opened);
    return {};
}

OpenedTransport LinkConnection::transport(std::chrono::milliseconds connectWait) {
    const Address& address = settings_.address;
    if (address.way == Address::Way::Simulated) {
        return simulatedTransport();
    }
    auto stream = address.way == Address::Way::Tcp
                      ? os::connectTcp(address.place, address.port, connectWait, interrupt_)
                      : os::openSerialPort(address.place, address.bitsPerSecond, interrupt_);
    if (!stream) {
        return std::unexpected(stream.error());
    }
    return std::make_unique<StreamTransport>(*std::move(stream), clock_);
}

OpenedTransport LinkConnection::simulatedTransport() {
    if (!radio_) {
        auto opened = SimulatedRadio::open(settings_.stateFile);
        if (!opened) {
            return std::unexpected(opened.error().path + ": " + opened.error().what);
        }
        radio_ = *std::move(opened);
    }
    if (!line_) {
        line_.emplace(*radio_, settings_.faults);
    }
    return std::make_unique<InProcessTransport>(*line_, clock_, interrupt_);
}

std::uint16_t LinkConnection::nextNumber() noexcept {
    ++number_;
    if (number_ == 0) {
        ++number_;
    }
    return number_;
}

}  // namespace telvar::radio
