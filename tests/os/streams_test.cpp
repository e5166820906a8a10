// Interrupts and TCP connections, alike on every platform.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "os/interrupt.h"
#include "os/serial_port.h"
#include "os/tcp.h"

namespace telvar::tests {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Bytes = std::vector<std::uint8_t>;

TEST(Interrupt, IsRaisedUntilItIsReset) {
    os::Interrupt interrupt;
    EXPECT_FALSE(interrupt.raised());
    EXPECT_FALSE(interrupt.waitFor(1ms));
    interrupt.raise();
    interrupt.raise();
    EXPECT_TRUE(interrupt.raised());
    EXPECT_TRUE(interrupt.waitFor(0ms));
    EXPECT_TRUE(interrupt.raised());
    interrupt.reset();
    EXPECT_FALSE(interrupt.raised());
}

TEST(Interrupt, EndsAWaitThatIsUnderWay) {
    os::Interrupt interrupt;
    std::thread other([&] { interrupt.raise(); });
    EXPECT_TRUE(interrupt.waitFor(60s));
    other.join();
}

struct Tcp : testing::Test {
    Tcp() {
        auto opened = os::connectTcp("localhost", listener.port(), 10s, interrupt);
        EXPECT_TRUE(opened) << opened.error();
        here = *std::move(opened);
        there = *listener.accept(interrupt);
    }

    // So many bytes, in as many pieces as they come.
    [[nodiscard]] static Bytes readFrom(os::ByteStream& stream, std::size_t count) {
        Bytes all;
        std::array<std::uint8_t, 1000> part{};
        while (all.size() < count) {
            const auto got = stream.read(part, 10s);
            if (!got || *got == 0) {
                break;
            }
            all.insert(all.end(), part.begin(), part.begin() + static_cast<std::ptrdiff_t>(*got));
        }
        return all;
    }
    [[nodiscard]] static Bytes pattern(std::size_t count) {
        Bytes bytes(count);
        std::uint8_t next = 0;
        std::ranges::generate(bytes, [&] { return next = static_cast<std::uint8_t>(next * 5 + 1); });
        return bytes;
    }

    os::Interrupt interrupt;
    os::TcpListener listener = *os::TcpListener::open(0);
    std::unique_ptr<os::ByteStream> here;
    std::unique_ptr<os::ByteStream> there;
};

TEST_F(Tcp, CarriesBytesBothWays) {
    const Bytes bytes = pattern(300);
    EXPECT_TRUE(here->write(bytes, 1s));
    EXPECT_EQ(readFrom(*there, bytes.size()), bytes);
    EXPECT_TRUE(there->write(bytes, 1s));
    EXPECT_EQ(readFrom(*here, bytes.size()), bytes);
}

TEST_F(Tcp, CarriesMoreThanTheSystemHoldsAtOnce) {
    const Bytes bytes = pattern(8'000'000);
    std::thread sender([&] { EXPECT_TRUE(here->write(bytes, 30s)); });
    EXPECT_TRUE(readFrom(*there, bytes.size()) == bytes);
    sender.join();
}

TEST_F(Tcp, AnswersNothingWhereNothingCameInTime) {
    std::array<std::uint8_t, 10> buffer{};
    EXPECT_EQ(here->read(buffer, 1ms), 0U);
    EXPECT_EQ(here->read(buffer, 0ms), 0U);
}

TEST_F(Tcp, AnInterruptEndsAReadThatIsUnderWay) {
    std::thread other([&] { interrupt.raise(); });
    std::array<std::uint8_t, 10> buffer{};
    EXPECT_EQ(here->read(buffer, 60s), 0U);
    other.join();
}

TEST_F(Tcp, AnInterruptEndsAWriteThatNobodyTakes) {
    std::thread other([&] { interrupt.raise(); });
    EXPECT_TRUE(here->write(pattern(64'000'000), 60s));
    other.join();
}

TEST_F(Tcp, APartnerThatTakesNothingIsAFailure) {
    const auto written = here->write(pattern(64'000'000), 20ms);
    ASSERT_FALSE(written);
    EXPECT_EQ(written.error(), "The other side takes no data");
}

TEST_F(Tcp, APartnerThatHasGoneIsAFailure) {
    there.reset();
    std::array<std::uint8_t, 10> buffer{};
    const auto got = here->read(buffer, 10s);
    ASSERT_FALSE(got);
    EXPECT_EQ(got.error(), "The other side has closed the connection");
}

TEST_F(Tcp, WritingToAPartnerThatHasGoneIsAFailureInTheEnd) {
    there.reset();
    const Bytes bytes = pattern(100'000);
    const auto until = Clock::now() + 10s;
    bool failed = false;
    while (!failed && Clock::now() < until) {
        failed = !here->write(bytes, 1s);
    }
    EXPECT_TRUE(failed);
}

TEST_F(Tcp, WhatCameBeforeTheEndIsReadFirst) {
    EXPECT_TRUE(there->write(Bytes{1, 2, 3}, 1s));
    there.reset();
    EXPECT_EQ(readFrom(*here, 3), (Bytes{1, 2, 3}));
}

TEST(TcpListener, AnInterruptEndsItsWait) {
    os::Interrupt interrupt;
    auto listener = *os::TcpListener::open(0);
    std::thread other([&] { interrupt.raise(); });
    const auto partner = listener.accept(interrupt);
    other.join();
    ASSERT_TRUE(partner);
    EXPECT_EQ(*partner, nullptr);
}

TEST(TcpListener, APortIsOpenedOnce) {
    const auto listener = *os::TcpListener::open(0);
    EXPECT_FALSE(os::TcpListener::open(listener.port()));
}

TEST(ConnectTcp, TellsWhyItCannot) {
    os::Interrupt interrupt;
    std::uint16_t port = 0;
    {
        port = os::TcpListener::open(0)->port();
    }
    EXPECT_FALSE(os::connectTcp("127.0.0.1", port, 10s, interrupt));
    const auto named = os::connectTcp("somewhere.example", port, 10s, interrupt);
    ASSERT_FALSE(named);
    EXPECT_EQ(named.error(), "\"somewhere.example\" is not a numeric address");
}

TEST(SerialPort, WhatIsNoneIsRefused) {
    os::Interrupt interrupt;
    EXPECT_FALSE(os::openSerialPort("no such port", 9600, interrupt));
    const auto odd = os::openSerialPort("COM1", 9601, interrupt);
    ASSERT_FALSE(odd);
    EXPECT_EQ(odd.error(), "That speed is not offered");
}

}  // namespace
}  // namespace telvar::tests
