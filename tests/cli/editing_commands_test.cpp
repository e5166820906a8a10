// The commands that edit as the grid does: validate, paste and fill.
#include <gtest/gtest.h>

#include "base/conversion.h"
#include "base/text.h"
#include "cli/console_desktop.h"
#include "command_line.h"
#include "editing/validators.h"
#include "store/table_file.h"
#include "support/table_builder.h"
#include "support/temporary_folder.h"

namespace telvar::cli {
namespace {

using model::ChannelKey;
using model::StoreMember;
using tests::Ran;
using tests::telvar;
using tests::TemporaryFolder;
using Arguments = std::vector<std::string>;

class EditingCommands : public testing::Test {
protected:
    EditingCommands() { save(*tests::fullStore()); }

    void save(model::MemoryDataStore& table) { EXPECT_TRUE(store::saveTable(path, store::contentsOf(table))); }

    [[nodiscard]] base::Value at(int channel, ChannelKey key) {
        return store::loadTable(path)->channels[static_cast<std::size_t>(channel - 1)][static_cast<std::size_t>(key)];
    }
    [[nodiscard]] double transmits(int channel) { return base::toDouble(at(channel, ChannelKey::TxFreq)); }

    // The diagnostics, of a command that must end so and leave the file alone.
    [[nodiscard]] std::string unchanged(int status, const Arguments& arguments, const std::string& input = {}) {
        const auto before = TemporaryFolder::read(path);
        const auto ran = telvar(arguments, input);
        EXPECT_EQ(ran.status, status);
        EXPECT_EQ(ran.out, "");
        EXPECT_EQ(TemporaryFolder::read(path), before);
        EXPECT_EQ(folder.entries(), (Arguments{"table.telvar"}));
        return ran.err;
    }

    TemporaryFolder folder;
    std::string path = folder / "table.telvar";
};

// -- validate ---------------------------------------------------------------------------------------------------------

using Validate = EditingCommands;

TEST_F(Validate, SaysWhatTheGridWouldSay) {
    model::MemoryDataStore table;
    const Arguments texts{"X",           "0",        "5",        " 8",   "25.5", "30",         "256",     "-1",
                          "1000.000001", "Disabled", "multiple", "023",  "64Hz", "Mixed Mode", "Simplex", "yes",
                          "N/A",         "Wide",     "Analogue", "12G4", "1",    "0293 ",      "",        "\t1"};
    for (std::int16_t column = 1; column <= editing::lastColumn; ++column) {
        for (const auto& text : texts) {
            const auto expected = editing::validateCell({.store = table, .channel = 1, .format = {}}, column, text);
            const auto ran = telvar({"validate", std::to_string(column), text});
            EXPECT_EQ(ran.out, expected.empty() ? "" : expected + "\n") << column << ' ' << text;
            EXPECT_EQ(ran.status, expected.empty() ? 0 : 1);
            EXPECT_EQ(ran.err, "");
        }
    }
}

TEST_F(Validate, TakesColumnsByHeadingAndByNumber) {
    const std::string error = "Invalid Synthesizer Step size value (out of range) TX Synth Step Size\n";
    EXPECT_EQ(telvar({"validate", "17", "30"}).out, error);
    EXPECT_EQ(telvar({"validate", "SynthStepTX", "30"}).out, error);
    EXPECT_EQ(telvar({"validate", "synthsteptx", "30"}).out, error);
    EXPECT_EQ(telvar({"validate", "WB/NB Selection", "Wide"}).status, 0);
    EXPECT_EQ(telvar({"validate", "0", "1"}).out, "Unknown Column type\n");
    EXPECT_EQ(telvar({"validate", "27", "1"}).out, "Unknown Column type\n");
    EXPECT_EQ(telvar({"validate", "--", "18", "-x"}).out,
              "Error in validating Pot Value (Type mismatch) TX Binary Main\n");
    for (const auto* column : {"Volume", "", "1.5", "99999", "1 "}) {
        const auto ran = telvar({"validate", column, "1"});
        EXPECT_EQ(ran.status, 2);
        EXPECT_EQ(ran.err, "telvar: there is no column \"" + std::string(column) + "\".\n");
    }
}

TEST_F(Validate, AnswersInJson) {
    const auto refused = telvar({"validate", "Scan", "maybe", "--json"});
    EXPECT_EQ(refused.out, "{\"error\": \"Invalid scan data value Scan\"}\n");
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(telvar({"--json", "validate", "Scan", "no"}).out, "{\"error\": \"\"}\n");
}

TEST_F(Validate, AsksTheRadioOfTheTable) {
    const auto verdict = [&](const std::string& column, const std::string& text) {
        return telvar({"validate", column, text, "--file", path}).out;
    };
    EXPECT_EQ(verdict("5", "P25 Repeater"), "Invalid value, there is no P25 board fitted for this mode RF Mode\n");
    EXPECT_EQ(verdict("7", "Wide"), "");
    ASSERT_EQ(telvar({"set", path, "RadioConfigurationCode=7", "FCCNarrowBandRadio=yes"}).status, 0);
    EXPECT_EQ(verdict("5", "P25 Repeater"), "");
    EXPECT_EQ(verdict("7", "Wide"), "Invalid value, this radio cannot be set to Wide band (FCC NB) WB/NB\n");
    EXPECT_EQ(telvar({"validate", "5", "P25 Repeater", "--file", "-"}, TemporaryFolder::read(path)).status, 0);
    EXPECT_EQ(telvar({"validate", "5", "Simplex", "--file", folder / "missing.telvar"}).status, 2);
}

TEST_F(Validate, ReadsNumbersInTheGivenLocale) {
    EXPECT_EQ(telvar({"validate", "1", "145,5", "--locale", ","}).out, "");
    EXPECT_EQ(telvar({"validate", "1", "145.5", "--locale", ","}).out,
              "Error in validating channel frequency (Type mismatch) RX Freq\n");
    EXPECT_EQ(telvar({"validate", "1", "\xff"}).err, "telvar: the text must be in UTF-8.\n");
}

// -- paste ------------------------------------------------------------------------------------------------------------

class Paste : public EditingCommands {
protected:
    [[nodiscard]] Arguments at(const std::string& row, const std::string& column, const Arguments& more = {}) {
        Arguments arguments{"paste", path, "--row", row, "--column", column};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return arguments;
    }
    using EditingCommands::at;
};

TEST_F(Paste, StoresCellsLineByLine) {
    const auto ran = telvar(at("7", "1"), "145.5\t145\n0\tX\r\n430");
    EXPECT_EQ(ran.status, 0);
    EXPECT_EQ(ran.out + ran.err, "");
    EXPECT_EQ(transmits(7), 145'500'000);
    EXPECT_EQ(at(7, ChannelKey::RxFreq), base::Value(145'000'000));
    EXPECT_EQ(transmits(8), 0);
    EXPECT_EQ(at(8, ChannelKey::RxFreq), base::Value(0));
    EXPECT_EQ(transmits(9), 430'000'000);
    EXPECT_TRUE(TemporaryFolder::read(path + ".bak") != TemporaryFolder::read(path));
}

TEST_F(Paste, PutsOneLineIntoEverySelectedRow) {
    ASSERT_EQ(telvar(at("10", "SynthStepTX", {"--rows", "3"}), "6.25").status, 0);
    for (const int channel : {10, 11, 12}) {
        EXPECT_EQ(at(channel, ChannelKey::SynthStep), base::Value(6'250)) << channel;
    }
    EXPECT_EQ(at(13, ChannelKey::SynthStep), base::Value(5'000));
    // With a line break behind it, it is not one line alone.
    ASSERT_EQ(telvar(at("10", "SynthStepTX", {"--rows", "3"}), "12.5\n").status, 0);
    EXPECT_EQ(at(10, ChannelKey::SynthStep), base::Value(12'500));
    EXPECT_EQ(at(11, ChannelKey::SynthStep), base::Value(6'250));
}

TEST_F(Paste, LeavesTheFileAloneWhenACellIsRefused) {
    EXPECT_EQ(unchanged(1, at("7", "1"), "145.5\t145.5\tnonsense"),
              path + ": channel 7, Tx Subtone: Error during pasting data. Invalid DCS value (not found in the table) "
                     "TX Subtone. Unable to continue.\n");
    EXPECT_EQ(unchanged(1, at("7", "1"), "145.5\n145.5\n145.5\tnonsense"),
              path + ": channel 9, Rx Frequency (MHz): Error during pasting data. Error in validating channel "
                     "frequency (Type mismatch) RX Freq. Unable to continue.\n");
    EXPECT_EQ(unchanged(1, at("7", "17"), "30"),
              path + ": channel 7, SynthStepTX: Error during pasting data. Invalid Synthesizer Step size value (out of "
                     "range) TX Synth Step Size. Unable to continue.\n");
    EXPECT_EQ(unchanged(1, at("7", "26"), "0001\t1"),
              path + ": channel 7, column 27: Error during pasting data. Unknown Column type. Unable to continue.\n");
    EXPECT_EQ(unchanged(1, at("255", "1"), "145\n146"), path + ": Error in PasteToCells()\n");
    EXPECT_EQ(telvar(at("7", "Scan", {"--json"}), "maybe").out,
              "{\"file\": \"" + path +
                  "\", \"changed\": false, \"refused\": {\"channel\": 7, \"column\": 6}, \"messages\": [{\"text\": "
                  "\"Error during pasting data. Invalid scan data value Scan. Unable to continue.\", \"title\": "
                  "\"Tesslin\", \"icon\": \"none\"}]}\n");
}

TEST_F(Paste, AnswersInJson) {
    EXPECT_EQ(telvar(at("7", "Scan", {"--json"}), "No").out,
              "{\"file\": \"" + path + "\", \"changed\": true, \"messages\": []}\n");
    EXPECT_EQ(telvar(at("7", "Scan", {"--json"}), "No").out,
              "{\"file\": \"" + path + "\", \"changed\": false, \"messages\": []}\n");
}

TEST_F(Paste, TakesTheTextFromAFileToo) {
    const auto text = folder / "cells.txt";
    TemporaryFolder::write(text, "145,5");
    const auto ran = telvar({"paste", "-", "--row", "7", "--column", "1", "--text", text, "--locale", ","},
                            TemporaryFolder::read(path));
    EXPECT_EQ(ran.status, 0) << ran.err;
    EXPECT_EQ(store::parseTable(ran.out, "")->channels[6][0], base::Value(145'500'000));
    const auto refused =
        telvar({"paste", "-", "--row", "7", "--column", "1", "--text", text}, TemporaryFolder::read(path));
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.out, "");
    EXPECT_EQ(refused.err, "standard input: channel 7, Tx Frequency (MHz): Error during pasting data. Error in "
                           "validating channel frequency (Type mismatch) RX Freq. Unable to continue.\n");
}

TEST_F(Paste, RefusesArgumentsThatMeanNothing) {
    EXPECT_EQ(unchanged(2, at("7", "0"), "1"), "telvar: there is no column \"0\" to paste into.\n");
    EXPECT_EQ(unchanged(2, at("7", "27"), "1"), "telvar: there is no column \"27\" to paste into.\n");
    EXPECT_EQ(unchanged(2, at("7", "Volume"), "1"), "telvar: there is no column \"Volume\" to paste into.\n");
    EXPECT_EQ(unchanged(2, at("250", "1", {"--rows", "7"}), "1"), "telvar: --rows reaches beyond channel 255.\n");
    EXPECT_TRUE(unchanged(2, at("0", "1"), "1").starts_with("telvar: --row: "));
    EXPECT_TRUE(unchanged(2, at("256", "1"), "1").starts_with("telvar: --row: "));
    EXPECT_TRUE(unchanged(2, at("7", "1", {"--rows", "0"}), "1").starts_with("telvar: --rows: "));
    EXPECT_EQ(unchanged(2, at("7", "1"), "\xff"), "standard input: Is not text in UTF-8.\n");
    EXPECT_EQ(unchanged(2, {"paste", "-", "--row", "1", "--column", "1"}),
              "telvar: the table and the text cannot both come from standard input; --text names a file.\n");
    EXPECT_EQ(unchanged(2, at("7", "1", {"--text", folder / "missing"})),
              (folder / "missing") + ": No such file or directory.\n");
}

// Cells that are shown, of channels that have all their cells, come back by a paste and by CSV alike.
TEST_F(Paste, DoesWhatCsvOfCellsDoes) {
    model::MemoryDataStore table;
    std::string cells;
    std::string csv = "Channel";
    for (std::size_t column = 1; column < editing::columnCount; ++column) {
        csv += "," + std::string(editing::columns[column].header);
    }
    csv += "\n";
    for (std::int16_t channel = 1; channel <= 5; ++channel) {
        tests::fill(table, channel,
                    {{ChannelKey::TxFreq, 145'000'000 + channel * 6'250},
                     {ChannelKey::RxFreq, 446'006'250},
                     {ChannelKey::RxSub, 67.0F + static_cast<float>(channel)},
                     {ChannelKey::ModeBits, channel % 3},
                     {ChannelKey::VCODev, 50 + channel}});
        const auto row = tests::renderedRow(table, channel);
        csv += std::to_string(channel);
        for (std::size_t column = 1; column < editing::columnCount; ++column) {
            cells += row[column] + (column < editing::columnCount - 1 ? "\t" : "\n");
            csv += "," + row[column];
        }
        csv += "\n";
    }
    ASSERT_TRUE(store::saveTable(path, store::emptyTable()));
    const auto pasted = telvar(at("1", "1"), cells);
    ASSERT_EQ(pasted.status, 0) << pasted.err;
    EXPECT_EQ(telvar({"convert", "-", "-", "--from", "csv"}, csv).out, TemporaryFolder::read(path));
}

// -- fill -------------------------------------------------------------------------------------------------------------

class Fill : public EditingCommands {
protected:
    [[nodiscard]] Arguments range(const std::string& from, const std::string& to, const std::string& start,
                                  const Arguments& more = {}) {
        Arguments arguments{"fill", path, "--from", from, "--to", to, "--start", start};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return arguments;
    }
};

TEST_F(Fill, WritesASeries) {
    const auto before = tests::fullStore();
    const auto ran = telvar(range("1", "255", "450", {"--step", "12.5"}));
    EXPECT_EQ(ran.status, 0);
    EXPECT_EQ(ran.out + ran.err, "");
    for (const int channel : {1, 2, 100, 255}) {
        EXPECT_EQ(at(channel, ChannelKey::TxFreq), base::Value(450'000'000 + (channel - 1) * 12'500)) << channel;
    }
    EXPECT_EQ(at(255, ChannelKey::TxFreq), base::Value(453'175'000));
    EXPECT_EQ(at(9, ChannelKey::RxFreq), before->channelValue(8, ChannelKey::RxFreq));
}

TEST_F(Fill, WritesOneFrequencyWithoutAStep) {
    ASSERT_EQ(telvar(range("3", "5", "0", {"--rx"})).status, 0);
    for (const int channel : {3, 4, 5}) {
        EXPECT_EQ(at(channel, ChannelKey::RxFreq), base::Value(0)) << channel;
        EXPECT_NE(transmits(channel), 0) << channel;
    }
    EXPECT_NE(at(2, ChannelKey::RxFreq), base::Value(0));
    EXPECT_NE(at(6, ChannelKey::RxFreq), base::Value(0));
}

TEST_F(Fill, AcceptsANegativeStep) {
    ASSERT_EQ(telvar(range("3", "4", "450,5", {"--step", "-25", "--locale", ","})).status, 0);
    EXPECT_EQ(transmits(3), 450'500'000);
    EXPECT_EQ(transmits(4), 450'475'000);
}

TEST_F(Fill, FillsNothingWhereTheDialogComplains) {
    const std::string frequency = path + ": Transmit frequency must be between 20 and 1000 MHz or 0 to disable.\n";
    EXPECT_EQ(unchanged(1, range("3", "5", "19.99", {"--rx"})), frequency);
    EXPECT_EQ(unchanged(1, range("3", "5", "abc")), frequency);
    const std::string step = path + ": Invalid step value.  Please re-enter value.\n";
    EXPECT_EQ(unchanged(1, range("3", "5", "450", {"--step", "abc"})), step);
    EXPECT_EQ(unchanged(1, range("3", "5", "1001", {"--step", ""})), frequency + step);
    const auto ran = telvar(range("3", "5", "19", {"--json"}));
    EXPECT_EQ(ran.out, "{\"file\": \"" + path +
                           "\", \"changed\": false, \"from\": 3, \"to\": 5, \"start\": \"0\", \"step\": \"\", "
                           "\"messages\": [{\"text\": \"Transmit frequency must be between 20 and 1000 MHz or 0 to "
                           "disable.\", \"title\": \"Telvar\", \"icon\": \"exclamation\"}]}\n");
}

TEST_F(Fill, SaysWhatTheDialogTakesOtherwise) {
    const auto ran = telvar(range("300", "10", "446.00625", {"--json"}));
    EXPECT_EQ(ran.status, 0);
    EXPECT_EQ(ran.err, path + ": --from 300 is taken as 9.\n" + path + ": --start 446.00625 is taken as 446.0063.\n");
    EXPECT_EQ(ran.out, "{\"file\": \"" + path +
                           "\", \"changed\": true, \"from\": 9, \"to\": 10, \"start\": \"446.0063\", \"step\": \"\", "
                           "\"messages\": []}\n");
    EXPECT_EQ(transmits(9), 446'006'300);
    EXPECT_EQ(transmits(10), 446'006'300);
    EXPECT_NE(transmits(254), 446'006'300);
}

TEST_F(Fill, RefusesArgumentsThatMeanNothing) {
    EXPECT_EQ(unchanged(2, range("a", "5", "450")), "telvar: --from takes the number of a channel, not \"a\".\n");
    EXPECT_EQ(unchanged(2, range("1", "99999", "450")), "telvar: --to takes the number of a channel, not \"99999\".\n");
    EXPECT_TRUE(unchanged(2, {"fill", path, "--from", "1", "--to", "2"}).starts_with("telvar: --start is required."));
}

TEST_F(Fill, PassesATableThroughStandardStreams) {
    const auto ran = telvar({"fill", "-", "--from", "1", "--to", "2", "--start", "450"}, TemporaryFolder::read(path));
    EXPECT_EQ(ran.status, 0) << ran.err;
    EXPECT_EQ(store::parseTable(ran.out, "")->channels[1][0], base::Value(450'000'000));
    EXPECT_EQ(telvar({"fill", "-", "--from", "1", "--to", "2", "--start", "450", "--json"}).err,
              "telvar: --json and the table itself cannot both go to standard output.\n");
}

// -- what their desktop does ------------------------------------------------------------------------------------------

TEST(ConsoleDesktop, TellsAndAnswersNobody) {
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    const Console console{.in = in, .out = out, .err = err};
    ConsoleDesktop desktop(console, "a.telvar");
    EXPECT_EQ(desktop.show({.text = "One"}), ui::Answer::Ok);
    EXPECT_EQ(desktop.show({.text = "Two?", .buttons = ui::Buttons::YesNo}), ui::Answer::No);
    EXPECT_EQ(desktop.show({.text = "Three?", .icon = ui::Icon::Information, .buttons = ui::Buttons::OkCancel}),
              ui::Answer::Cancel);
    EXPECT_EQ(err.str(), "a.telvar: One\na.telvar: Two?\na.telvar: Three?\n");
    EXPECT_EQ(desktop.messages().size(), 3U);
    EXPECT_EQ(desktop.clipboardText(), std::nullopt);
}

}  // namespace
}  // namespace telvar::cli
