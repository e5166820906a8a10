// Sending and loading between two Windows programs over TCP.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/build_paths.h"
#include "support/temporary_folder.h"
#include "support/windows/command.h"
#include "support/windows/radio_program.h"

namespace telvar::tests {
namespace {

class Transfer : public testing::Test {
protected:
    [[nodiscard]] static CommandOutcome telvar(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), TELVAR_BIN_DIR "/telvar.exe");
        return runCommand(arguments);
    }

    TemporaryFolder folder;
    std::string table = folder / "K\xc3\xbcste.telvar";
    std::string state = folder / "state.telvar-radio";
    std::string sample = TemporaryFolder::read(TELVAR_SOURCE_DIR "/samples/every-reading.telvar");
};

TEST_F(Transfer, ATableIsSentChangedAndLoadedBackByteByByte) {
    TemporaryFolder::write(table, sample);
    RadioProgram radio("--state \"" + state + "\"");
    const auto address = radio.address();
    ASSERT_TRUE(address.starts_with("tcp:127.0.0.1:")) << address;
    const auto sent = telvar({"send", table, "--radio", address, "--backup-folder", folder / "backups"});
    EXPECT_EQ(sent.exitCode, 0U) << sent.output;
    EXPECT_TRUE(sent.output.starts_with("The radio holds the table; its former one is kept in ")) << sent.output;
    ASSERT_EQ(telvar({"set", table, "TxFreq=150000000", "--channel", "1-255"}).exitCode, 0U);
    const auto loaded = telvar({"load", table, "--radio", address});
    EXPECT_EQ(loaded.exitCode, 0U) << loaded.output;
    EXPECT_EQ(TemporaryFolder::read(table), sample);
    radio.closeInput();
    EXPECT_EQ(radio.waitForEnd(), 0U);
    EXPECT_TRUE(TemporaryFolder::read(state).starts_with("telvar-radio-table 1\n"));
}

TEST_F(Transfer, ARadioThatIsNotThereIsTold) {
    TemporaryFolder::write(table, sample);
    std::string address;
    {
        RadioProgram radio;
        address = radio.address();
        radio.closeInput();
        EXPECT_EQ(radio.waitForEnd(), 0U);
    }
    const auto loaded = telvar({"load", table, "--radio", address});
    EXPECT_EQ(loaded.exitCode, 2U);
    EXPECT_TRUE(loaded.output.starts_with("telvar: The radio cannot be reached at " + address + " (")) << loaded.output;
    EXPECT_EQ(TemporaryFolder::read(table), sample);
}

TEST_F(Transfer, FindingsKeepATableFromBeingSent) {
    ASSERT_EQ(telvar({"new", table}).exitCode, 0U);
    ASSERT_EQ(telvar({"set", table, "TxFreq=450000001", "ModeBits=1", "--channel", "3"}).exitCode, 0U);
    const auto sent = telvar({"send", table, "--radio", "simulated"});
    EXPECT_EQ(sent.exitCode, 1U);
    EXPECT_TRUE(sent.output.starts_with(table + ": Reference frequency divide error")) << sent.output;
}

}  // namespace
}  // namespace telvar::tests
