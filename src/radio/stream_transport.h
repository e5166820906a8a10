// The way to a radio over a stream of the system's: a socket or a serial port.
#pragma once

#include <memory>
#include <utility>

#include "os/byte_stream.h"
#include "radio/transport.h"

namespace telvar::radio {

class StreamTransport final : public Transport {
public:
    StreamTransport(std::unique_ptr<os::ByteStream> stream, const LinkClock& clock) noexcept
        : stream_(std::move(stream)), clock_(clock) {}

    [[nodiscard]] std::expected<void, std::string> send(ByteView bytes) override;
    [[nodiscard]] std::expected<Bytes, std::string> receive(LinkTime until) override;

private:
    std::unique_ptr<os::ByteStream> stream_;
    const LinkClock& clock_;
};

}  // namespace telvar::radio
