// The checks, the calculator and the proposal from the command line.
#include <gtest/gtest.h>

#include "command_line.h"
#include "store/table_file.h"
#include "support/build_paths.h"
#include "support/table_builder.h"
#include "support/temporary_folder.h"

namespace telvar::cli {
namespace {

using model::ChannelKey;
using tests::telvar;
using tests::TemporaryFolder;

constexpr std::int32_t good = 450'000'000;
constexpr std::int32_t offGrid = good + 1;

class Check : public testing::Test {
protected:
    // A table with that transmit frequency in channel 3.
    [[nodiscard]] std::string table(const std::string& name, std::int32_t frequency) {
        return saved(name,
                     [&](model::MemoryDataStore& store) { tests::fill(store, 3, {{ChannelKey::TxFreq, frequency}}); });
    }
    template <class Fill>
    [[nodiscard]] std::string saved(const std::string& name, Fill&& fill) {
        model::MemoryDataStore store;
        store::putInto(store, store::emptyTable());
        fill(store);
        const auto path = folder / name;
        EXPECT_TRUE(store::saveTable(path, store::contentsOf(store)));
        return path;
    }

    TemporaryFolder folder;
};

TEST_F(Check, AGoodTableIsFineAndSilent) {
    const auto ran = telvar({"check", table("good.telvar", good)});
    EXPECT_EQ(ran.status, 0);
    EXPECT_EQ(ran.out + ran.err, "");
}

TEST_F(Check, FaultsAreToldWithTheControlsTextAndAreFindings) {
    const auto path = table("bad.telvar", offGrid);
    const auto ran = telvar({"check", path});
    EXPECT_EQ(ran.status, 1);
    EXPECT_EQ(ran.out, "");
    EXPECT_EQ(ran.err, path + ": Reference frequency divide error or main frequency divide error in channels 3.\n"
                              "    Hint: Correct frequency or alter modulus or step size.\n");
}

TEST_F(Check, JsonHasTheTextsExactlyAsTheControlShowsThem) {
    const auto path = table("bad.telvar", offGrid);
    const auto ran = telvar({"check", path, "--json"});
    EXPECT_EQ(ran.status, 1);
    EXPECT_EQ(ran.out, "{\"file\": \"" + path +
                           "\", \"ok\": false, \"scan\": \"\", \"messages\": [{\"text\": \"Reference frequency divide "
                           "error or main frequency divide error in channels 3.\\rHint: Correct frequency or alter "
                           "modulus or step size.\\r\\n\", \"title\": \"Telvar\", \"icon\": \"exclamation\"}]}\n");
    EXPECT_EQ(ran.err, "");
}

TEST_F(Check, AWarningAloneIsFineAndCarriesTheDefaultTitle) {
    const auto path = saved("chip.telvar", [](model::MemoryDataStore& store) {
        store.put(model::StoreMember::TxSynthChipInfo, base::textValue("N.A."));
        tests::fill(store, 2, {{ChannelKey::TxFreq, good}, {ChannelKey::SynthStep, 2500}});
    });
    const auto ran = telvar({"check", path, "--json"});
    EXPECT_EQ(ran.status, 0);
    EXPECT_NE(ran.out.find("\"ok\": true"), std::string::npos) << ran.out;
    EXPECT_NE(ran.out.find("\"title\": \"Tesslin\""), std::string::npos) << ran.out;
}

TEST_F(Check, TooManyScannedChannelsAreAFinding) {
    const auto path = saved("scan.telvar", [](model::MemoryDataStore& store) {
        for (std::int16_t channel = 1; channel <= 41; ++channel) {
            tests::fill(store, channel, {{ChannelKey::TxFreq, good}, {ChannelKey::scan, true}});
        }
    });
    const auto ran = telvar({"check", path});
    EXPECT_EQ(ran.status, 1);
    EXPECT_EQ(ran.err, path + ": Total number of channel scan must not exceed 40.\n");
    const auto json = telvar({"check", path, "--json"});
    EXPECT_EQ(json.out, "{\"file\": \"" + path +
                            "\", \"ok\": false, \"scan\": \"Total number of channel scan must not exceed 40.\", "
                            "\"messages\": []}\n");
}

TEST_F(Check, ManyFilesAreAnsweredInTheirOrderAndTheWorstOutcomeCounts) {
    std::vector<std::string> arguments{"check", "--json"};
    std::string expected;
    for (int number = 0; number < 200; ++number) {
        const auto path = table(std::to_string(number) + ".telvar", number % 7 == 0 ? offGrid : good);
        arguments.push_back(path);
        expected += "{\"file\": \"" + path + "\", \"ok\": " + (number % 7 == 0 ? "false" : "true") + "\n";
    }
    const auto ran = telvar(arguments);
    EXPECT_EQ(ran.status, 1);
    std::istringstream lines(ran.out);
    std::string heads;
    for (std::string line; std::getline(lines, line);) {
        heads += line.substr(0, line.find(", \"scan\"")) + "\n";
    }
    EXPECT_EQ(heads, expected);
    arguments.push_back(folder / "missing.telvar");
    EXPECT_EQ(telvar(arguments).status, 2);
}

TEST_F(Check, AnUnreadableFileDoesNotKeepTheOthersFromBeingChecked) {
    const auto bad = table("bad.telvar", offGrid);
    const auto missing = folder / "missing.telvar";
    const auto ran = telvar({"check", missing, bad});
    EXPECT_EQ(ran.status, 2);
    EXPECT_TRUE(ran.err.starts_with(missing + ": ")) << ran.err;
    EXPECT_NE(ran.err.find(bad + ": Reference frequency divide error"), std::string::npos) << ran.err;
}

TEST_F(Check, StandardInputIsCheckedOnce) {
    const auto text = TemporaryFolder::read(table("bad.telvar", offGrid));
    const auto ran = telvar({"check", "-"}, text);
    EXPECT_EQ(ran.status, 1);
    EXPECT_TRUE(ran.err.starts_with("standard input: Reference frequency")) << ran.err;
    EXPECT_EQ(telvar({"check", "-", "-"}, text).status, 2);
}

TEST_F(Check, EverySamplePasses) {
    for (const char* name : {"maritime", "pmr446", "gmrs", "fixed-bandwidth", "every-reading"}) {
        const auto ran = telvar({"check", std::string(TELVAR_SOURCE_DIR "/samples/") + name + ".telvar"});
        EXPECT_EQ(ran.status, 0) << ran.err;
    }
}

TEST(Pll, TellsTheWorkedExampleWithItsCounters) {
    const std::vector<std::string> question{"pll",    "--vco", "450000000",   "--modulo", "8",
                                            "--step", "12500", "--reference", "12800000"};
    const auto ran = telvar(question);
    EXPECT_EQ(ran.status, 0);
    EXPECT_EQ(ran.out, "valid: ratio 4500, main 62, eights 1, ones 4\n");
    auto json = question;
    json.emplace_back("--json");
    EXPECT_EQ(telvar(json).out, "{\"valid\": true, \"ratio\": 4500, \"main\": 62, \"eights\": 1, \"ones\": 4}\n");
}

TEST(Pll, ACombinationThatIsNotValidIsAFinding) {
    const auto ran =
        telvar({"pll", "--vco", "450000001", "--modulo", "8", "--step", "12500", "--reference", "12800000", "--json"});
    EXPECT_EQ(ran.status, 1);
    EXPECT_EQ(ran.out, "{\"valid\": false, \"ratio\": 4500, \"main\": 62, \"eights\": 1, \"ones\": 4}\n");
}

TEST(Pll, WhatCannotBeComputedHasNoCounters) {
    for (const char* step : {"0", "2000000000"}) {
        const auto ran =
            telvar({"pll", "--vco", "450000000", "--modulo", "8", "--step", step, "--reference", "12800000", "--json"});
        EXPECT_EQ(ran.status, 1);
        EXPECT_EQ(ran.out, "{\"valid\": false}\n");
    }
}

TEST(Pll, ArgumentsThatAreNoNumbersOfTheirWidthAreRefused) {
    for (const char* vco : {"abc", "2147483648", "1.5", ""}) {
        EXPECT_EQ(telvar({"pll", "--vco", vco, "--modulo", "8", "--step", "12500", "--reference", "1"}).status, 2)
            << vco;
    }
    EXPECT_EQ(telvar({"pll", "--vco", "1", "--modulo", "40000", "--step", "12500", "--reference", "1"}).status, 2);
    EXPECT_EQ(telvar({"pll", "--vco", "1"}).status, 2);
}

TEST(Propose, GivesTheFirstCandidateThatFits) {
    EXPECT_EQ(telvar({"propose", "--vco", "450000000", "--reference", "12800000"}).out, "step 12500 Hz, modulo 8\n");
    EXPECT_EQ(
        telvar({"propose", "--vco", "450002500", "--reference", "12800000", "--current-step", "2.5", "--json"}).out,
        "{\"step\": 2500, \"modulo\": 8}\n");
}

TEST(Propose, SaysWhenNothingFits) {
    const auto ran = telvar({"propose", "--vco", "450000001", "--reference", "12800000"});
    EXPECT_EQ(ran.status, 1);
    EXPECT_EQ(ran.err, "telvar: no step size and modulo fit this frequency.\n");
    EXPECT_EQ(telvar({"propose", "--vco", "450000001", "--reference", "12800000", "--json"}).out, "{\"step\": null}\n");
}

}  // namespace
}  // namespace telvar::cli
