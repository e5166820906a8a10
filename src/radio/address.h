// Where the radio is, as a text that users type and hosts keep: "simulated", "tcp:127.0.0.1:4711", "serial:COM3" or
// "serial:/dev/ttyUSB0,9600".
#pragma once

#include <cstdint>
#include <expected>
#include <string>
#include <string_view>

namespace telvar::radio {

struct Address {
    enum class Way : std::uint8_t { Simulated, Tcp, Serial };
    Way way = Way::Simulated;
    std::string place;       // host or name of the port
    std::uint16_t port = 0;  // of TCP
    int bitsPerSecond = 0;   // of a serial port
    bool operator==(const Address&) const = default;
};

inline constexpr int usualSpeed = 19200;  // bits per second

// The error is one sentence without its full stop.
[[nodiscard]] std::expected<Address, std::string> parseAddress(std::string_view text);
[[nodiscard]] std::string textOf(const Address& address);

}  // namespace telvar::radio
