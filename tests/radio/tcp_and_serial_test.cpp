// Exchanges over what the system offers: a TCP connection and a pair of terminals, with the simulated radio behind
// them.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>

#include "radio/radio_client.h"
#include "radio/radio_server.h"
#include "support/posix/pseudo_terminal.h"
#include "support/posix/swallowing_port.h"
#include "support/served_radio.h"
#include "support/temporary_folder.h"
#include "tables.h"

namespace telvar::tests {
namespace {

const radio::Percent nobodyLooks = [](int) {};

struct RealLine : testing::Test {
    [[nodiscard]] bool connect(const radio::Address& address) {
        client.configure({.address = address, .backupFolder = folder.name()});
        return client.status().succeeded;
    }

    TemporaryFolder folder;
    radio::SystemClock clock;
    os::Interrupt interrupt;
    radio::RadioClient client{clock, interrupt};
};

TEST_F(RealLine, ATableTravelsOverTcpAndBack) {
    ServedRadio served;
    ASSERT_TRUE(connect(served.address()));
    const auto sent = client.sendTable(sampleImage(1), nobodyLooks);
    EXPECT_TRUE(sent.succeeded) << sent.sentence;
    const auto [outcome, image] = client.loadTable(nobodyLooks);
    EXPECT_EQ(image, sampleImage(1));
    served.stop();
    EXPECT_EQ(served.radio.table(), sampleImage(1));
}

TEST_F(RealLine, FaultsOverTcpAreMadeGood) {
    ServedRadio served("repeat/3,echo,reorder@9,cut@50");
    ASSERT_TRUE(connect(served.address()));
    const auto sent = client.sendTable(sampleImage(1), nobodyLooks);
    EXPECT_TRUE(sent.succeeded) << sent.sentence;
}

TEST_F(RealLine, APartnerThatHasGoneIsConnectedToAgain) {
    ServedRadio served;
    ASSERT_TRUE(connect(served.address()));
    {
        radio::RadioClient other(clock, interrupt);
        client.configure({});
        other.configure({.address = served.address()});
        EXPECT_TRUE(other.selectChannel(9).succeeded);
    }
    ASSERT_TRUE(connect(served.address()));
    EXPECT_TRUE(client.selectChannel(12).succeeded);
}

TEST_F(RealLine, ARadioThatIsNotThereIsTold) {
    radio::Address address;
    {
        ServedRadio served;
        address = served.address();
    }
    client.configure({.address = address});
    const auto outcome = client.loadTable(nobodyLooks);
    EXPECT_FALSE(outcome.outcome.succeeded);
    EXPECT_EQ(outcome.outcome.sentence, "The radio cannot be reached at " + radio::textOf(address) +
                                            " (Connection refused); the table here was not changed.");
}

// Such as a firewall does, or a machine that is switched off.
TEST_F(RealLine, AStatusAtAnAddressThatSwallowsEverythingIsBrief) {
    const SwallowingPort port;
    client.configure({.address = port.address()});
    const auto began = clock.now();
    EXPECT_EQ(client.status(),
              (radio::Outcome{false, "The radio cannot be reached at " + radio::textOf(port.address()) +
                                         " (The other side does not answer)."}));
    EXPECT_LT(clock.now() - began, std::chrono::milliseconds(2000));
}

TEST_F(RealLine, ARadioThatGoesAwayInTheMiddleIsTold) {
    auto served = std::make_unique<ServedRadio>();
    ASSERT_TRUE(connect(served->address()));
    const auto loaded = client.loadTable([&](int percent) {
        if (percent > 30) {
            served->stop();
            served.reset();
        }
    });
    EXPECT_FALSE(loaded.outcome.succeeded);
    EXPECT_TRUE(loaded.outcome.sentence.starts_with("The connection to the radio broke (")) << loaded.outcome.sentence;
}

TEST_F(RealLine, AnAbortEndsTheWaitForASilentRadioAtOnce) {
    ServedRadio served("silence");
    client.configure({.address = served.address()});
    std::thread user([this] { interrupt.raise(); });
    const auto began = clock.now();
    const auto loaded = client.loadTable(nobodyLooks);
    user.join();
    EXPECT_EQ(loaded.outcome.sentence, "The exchange was aborted; the table here was not changed.");
    EXPECT_LT(clock.now() - began, std::chrono::milliseconds(1400));
}

TEST_F(RealLine, ATableTravelsOverASerialLine) {
    PseudoTerminal terminal;
    radio::SimulatedRadio theRadio;
    radio::SimulatedLine line(theRadio, {});
    os::Interrupt ending;
    auto stream = terminal.radioSide(ending);
    std::thread radio([&] { radio::serve(line, *stream, ending); });
    client.configure({.address = {.way = radio::Address::Way::Serial, .place = terminal.name(), .bitsPerSecond = 19200},
                      .backupFolder = folder.name()});
    const auto sent = client.sendTable(sampleImage(1), nobodyLooks);
    EXPECT_TRUE(sent.succeeded) << sent.sentence;
    client.configure({});
    ending.raise();
    radio.join();
    EXPECT_EQ(theRadio.table(), sampleImage(1));
}

TEST_F(RealLine, APortThatIsNoneIsTold) {
    const auto file = folder / "file";
    TemporaryFolder::write(file, "");
    client.configure({.address = {.way = radio::Address::Way::Serial, .place = file, .bitsPerSecond = 9600}});
    EXPECT_EQ(client.status().sentence,
              "The radio cannot be reached at serial:" + file + ",9600 (Is not a serial port).");
}

}  // namespace
}  // namespace telvar::tests
