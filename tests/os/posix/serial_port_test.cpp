// A serial port that exists in the system only.
#include "os/serial_port.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <vector>

#include "support/posix/pseudo_terminal.h"

namespace telvar::tests {
namespace {

using namespace std::chrono_literals;
using Bytes = std::vector<std::uint8_t>;

[[nodiscard]] Bytes readFrom(os::ByteStream& stream, std::size_t count) {
    Bytes all;
    std::array<std::uint8_t, 100> part{};
    while (all.size() < count) {
        const auto got = stream.read(part, 10s);
        if (!got || *got == 0) {
            break;
        }
        all.insert(all.end(), part.begin(), part.begin() + static_cast<std::ptrdiff_t>(*got));
    }
    return all;
}

// A terminal would turn line ends round, echo, and take some characters for itself.
TEST(SerialPort, CarriesEveryByteAsItIs) {
    os::Interrupt interrupt;
    PseudoTerminal terminal;
    const auto far = terminal.radioSide(interrupt);
    const auto port = os::openSerialPort(terminal.name(), 9600, interrupt);
    ASSERT_TRUE(port) << port.error();
    Bytes bytes(256);
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        bytes[at] = static_cast<std::uint8_t>(at);
    }
    EXPECT_TRUE((*port)->write(bytes, 1s));
    EXPECT_EQ(readFrom(*far, bytes.size()), bytes);
    EXPECT_TRUE(far->write(bytes, 1s));
    EXPECT_EQ(readFrom(**port, bytes.size()), bytes);
    std::array<std::uint8_t, 10> buffer{};
    EXPECT_EQ((*port)->read(buffer, 1ms), 0U);
    EXPECT_EQ(far->read(buffer, 1ms), 0U);
}

TEST(SerialPort, AFileIsNone) {
    os::Interrupt interrupt;
    const auto port = os::openSerialPort("/dev/null", 9600, interrupt);
    ASSERT_FALSE(port);
    EXPECT_EQ(port.error(), "Is not a serial port");
}

}  // namespace
}  // namespace telvar::tests
