// The command line as a Windows program: wide arguments, bytes as they are, exit statuses.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/build_paths.h"
#include "support/temporary_folder.h"
#include "support/windows/command.h"

namespace telvar::tests {
namespace {

class Program : public testing::Test {
protected:
    [[nodiscard]] static CommandOutcome telvar(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), TELVAR_BIN_DIR "/telvar.exe");
        return runCommand(arguments);
    }

    TemporaryFolder folder;
    std::string path = folder / "K\xc3\xbcste \xe6\xb5\xb7.telvar";
};

TEST_F(Program, TakesNamesAndTextsInAnyScript) {
    ASSERT_EQ(telvar({"new", path, "--title", "K\xc3\xbcste \xe6\xb5\xb7"}).output, "");
    ASSERT_EQ(telvar({"set", path, "TxFreq=145500000", "--channel", "2"}).output, "");
    EXPECT_EQ(folder.entries(),
              (std::vector<std::string>{"K\xc3\xbcste \xe6\xb5\xb7.telvar", "K\xc3\xbcste \xe6\xb5\xb7.telvar.bak"}));
    const auto text = TemporaryFolder::read(path);
    EXPECT_NE(text.find("\"title\": \"K\xc3\xbcste \xe6\xb5\xb7\""), std::string::npos) << text;
    EXPECT_NE(text.find("{\"channel\": 2, \"TxFreq\": 145500000}"), std::string::npos) << text;
    EXPECT_EQ(text.find('\r'), std::string::npos);
}

TEST_F(Program, WritesTheSamplesAgainByteByByte) {
    for (const std::string name : {"maritime", "every-reading"}) {
        const std::string sample = std::string(TELVAR_SOURCE_DIR "/samples/") + name + ".telvar";
        const auto copy = folder / (name + ".telvar");
        ASSERT_EQ(telvar({"convert", sample, copy}).output, "");
        EXPECT_EQ(TemporaryFolder::read(copy), TemporaryFolder::read(sample)) << name;
    }
}

TEST_F(Program, BringsASampleToCsvAndBackByteByByte) {
    const std::string sample = TELVAR_SOURCE_DIR "/samples/every-reading.telvar";
    const auto csv = folder / "table.csv";
    ASSERT_EQ(telvar({"convert", sample, csv}).output, "");
    ASSERT_EQ(telvar({"convert", csv, path, "--like", sample}).output, "");
    EXPECT_EQ(TemporaryFolder::read(path), TemporaryFolder::read(sample));
}

TEST_F(Program, ValidatesPastesAndFillsAsTheGridDoes) {
    const auto refused = telvar({"validate", "SynthStepTX", "30"});
    EXPECT_EQ(refused.output, "Invalid Synthesizer Step size value (out of range) TX Synth Step Size\n");
    EXPECT_EQ(refused.exitCode, 1U);
    ASSERT_EQ(telvar({"new", path}).output, "");
    const auto cells = folder / "cells.txt";
    TemporaryFolder::write(cells, "145.5\t146\r\n145.6\t146.1");
    ASSERT_EQ(telvar({"paste", path, "--row", "2", "--column", "1", "--text", cells}).output, "");
    ASSERT_EQ(telvar({"fill", path, "--from", "4", "--to", "5", "--start", "450", "--step", "12.5"}).output, "");
    const auto shown = telvar({"show", path, "--channels", "2-5"}).output;
    for (const auto* row :
         {"2\t145.500000\t146.000000", "3\t145.600000\t146.100000", "4\t450.000000\tX", "5\t450.012500\tX"}) {
        EXPECT_NE(shown.find(std::string("\n") + row), std::string::npos) << shown;
    }
    const auto before = TemporaryFolder::read(path);
    TemporaryFolder::write(cells, "145.5\tabc");
    const auto failed = telvar({"paste", path, "--row", "2", "--column", "1", "--text", cells});
    EXPECT_EQ(failed.exitCode, 1U);
    EXPECT_EQ(failed.output, path + ": channel 2, Rx Frequency (MHz): Error during pasting data. Error in validating "
                                    "channel frequency (Type mismatch) RX Freq. Unable to continue.\n");
    EXPECT_EQ(TemporaryFolder::read(path), before);
}

TEST_F(Program, SaysWhatItRefuses) {
    const auto missing = telvar({"show", path});
    EXPECT_EQ(missing.exitCode, 2U);
    EXPECT_TRUE(missing.output.starts_with(path + ": ")) << missing.output;
    EXPECT_EQ(telvar({"/show"}).exitCode, 2U);
}

TEST_F(Program, ReadsBackslashesAsFolders) {
    auto backslashes = path;
    std::ranges::replace(backslashes, '/', '\\');
    ASSERT_EQ(telvar({"new", backslashes}).output, "");
    EXPECT_EQ(folder.entries().size(), 1U);
    EXPECT_EQ(telvar({"new", backslashes}).exitCode, 2U);
}

}  // namespace
}  // namespace telvar::tests
