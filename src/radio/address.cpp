#include "radio/address.h"

#include <charconv>

#include "base/text.h"
#include "os/serial_port.h"

namespace telvar::radio {

namespace {

template <class Number>
[[nodiscard]] bool readNumber(std::string_view text, Number& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() && number > 0;
}

[[nodiscard]] bool readTcp(std::string_view text, Address& address) {
    const auto colon = text.rfind(':');
    if (colon == std::string_view::npos || colon == 0) {
        return false;
    }
    address.way = Address::Way::Tcp;
    address.place = text.substr(0, colon);
    return readNumber(text.substr(colon + 1), address.port);
}

[[nodiscard]] bool readSerial(std::string_view text, Address& address) {
    const auto comma = text.rfind(',');
    address.way = Address::Way::Serial;
    address.place = text.substr(0, comma);
    address.bitsPerSecond = usualSpeed;
    if (comma != std::string_view::npos && !readNumber(text.substr(comma + 1), address.bitsPerSecond)) {
        return false;
    }
    return !address.place.empty() && os::isSerialSpeed(address.bitsPerSecond);
}

}  // namespace

std::expected<Address, std::string> parseAddress(std::string_view text) {
    constexpr std::string_view tcp = "tcp:";
    constexpr std::string_view serial = "serial:";
    const auto trimmed = base::trimmed(text);
    Address address;
    const bool usable = trimmed == "simulated" ||
                        (trimmed.starts_with(tcp) && readTcp(trimmed.substr(tcp.size()), address)) ||
                        (trimmed.starts_with(serial) && readSerial(trimmed.substr(serial.size()), address));
    if (!usable) {
        return std::unexpected("\"" + std::string(text) +
                               "\" is no connection: write simulated, tcp:ADDRESS:PORT or serial:PORT,SPEED");
    }
    return address;
}

std::string textOf(const Address& address) {
    switch (address.way) {
    case Address::Way::Tcp:
        return "tcp:" + address.place + ":" + std::to_string(address.port);
    case Address::Way::Serial:
        return "serial:" + address.place + "," + std::to_string(address.bitsPerSecond);
    case Address::Way::Simulated:
        break;
    }
    return "simulated";
}

}  // namespace telvar::radio
