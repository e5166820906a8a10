#include <gtest/gtest.h>
#include <sys/stat.h>

#include <array>

#include "base/conversion.h"
#include "command_line.h"
#include "store/table_file.h"
#include "support/build_paths.h"
#include "support/table_builder.h"
#include "support/temporary_folder.h"
#include "support/unprivileged.h"

namespace telvar::cli {
namespace {

using model::ChannelKey;
using tests::telvar;
using tests::TemporaryFolder;
using Names = std::vector<std::string>;

class Commands : public testing::Test {
protected:
    // A table in memory becomes the file.
    void save(model::MemoryDataStore& table, const std::string& title = {}) {
        auto contents = store::contentsOf(table);
        contents.title = title;
        ASSERT_TRUE(store::saveTable(path, contents));
    }
    void saveEmpty() { ASSERT_TRUE(store::saveTable(path, store::emptyTable())); }

    [[nodiscard]] base::Value stored(std::int16_t channel, ChannelKey key) {
        const auto contents = store::loadTable(path);
        EXPECT_TRUE(contents) << contents.error().sentence();
        return contents->channels[static_cast<std::size_t>(channel - 1)][static_cast<std::size_t>(key)];
    }

    // The first line of the diagnostics of a command that must be refused and leave the file alone.
    [[nodiscard]] std::string refusal(const std::vector<std::string>& arguments) {
        const auto before = TemporaryFolder::read(path);
        const auto ran = telvar(arguments);
        EXPECT_EQ(ran.status, 2);
        EXPECT_EQ(ran.out, "");
        EXPECT_EQ(TemporaryFolder::read(path), before);
        return ran.err.substr(0, ran.err.find('\n'));
    }

    TemporaryFolder folder;
    std::string path = folder / "table.telvar";
};

using New = Commands;
using Show = Commands;
using Set = Commands;
using Convert = Commands;

TEST_F(New, CreatesAnEmptyTable) {
    const auto ran = telvar({"new", path, "--title", "Küste"});
    EXPECT_EQ(ran.status, 0);
    EXPECT_EQ(ran.out + ran.err, "");
    auto expected = store::emptyTable();
    expected.title = "Küste";
    EXPECT_EQ(store::loadTable(path).value(), expected);
    EXPECT_EQ(telvar({"new", folder / "b.telvar", "--json"}).out,
              "{\"file\": \"" + (folder / "b.telvar") + "\", \"title\": \"\"}\n");
}

TEST_F(New, ReplacesAFileOnlyWhenForced) {
    TemporaryFolder::write(path, "precious");
    EXPECT_EQ(refusal({"new", path}), path + ": Exists already; --force replaces it.");
    EXPECT_EQ(telvar({"new", path, "--force"}).status, 0);
    EXPECT_EQ(store::loadTable(path).value(), store::emptyTable());
    EXPECT_EQ(TemporaryFolder::read(path + ".bak"), "precious");
}

TEST_F(New, WritesToStandardOutput) {
    EXPECT_EQ(telvar({"new", "-"}).out, store::tableText(store::emptyTable(), "").value());
}

TEST_F(New, RefusesWhatItCannotCreate) {
    EXPECT_EQ(refusal({"new", folder / "table.csv"}), (folder / "table.csv") + ": The name must end in .telvar.");
    EXPECT_EQ(refusal({"new", folder / "missing/a.telvar"}),
              (folder / "missing/a.telvar") + ": No such file or directory.");
    EXPECT_EQ(refusal({"new", path, "--title", "\xff"}), "telvar: the title must be text in UTF-8.");
    ASSERT_EQ(::chmod(folder.name().c_str(), 0555), 0);
    const tests::Unprivileged nobody;
    EXPECT_EQ(refusal({"new", path}), path + ": Permission denied.");
}

TEST_F(Show, PrintsTheCellsOfTheGrid) {
    const auto table = tests::fullStore();
    tests::fill(*table, 9, {{ChannelKey::TxFreq, 0}, {ChannelKey::RxFreq, 0}});
    save(*table);
    std::string expected;
    for (std::size_t column = 1; column < editing::columnCount; ++column) {
        expected += "\t" + std::string(editing::columns[column].header);
    }
    expected += "\n";
    for (std::int16_t channel = 1; channel <= model::channelCount; ++channel) {
        const auto cells = tests::renderedRow(*table, channel);
        expected += std::to_string(channel);
        for (std::size_t column = 1; column < editing::columnCount; ++column) {
            expected += "\t" + cells[column];
        }
        expected += "\n";
    }
    EXPECT_EQ(telvar({"show", path, "--all-columns"}).out, expected);
}

TEST_F(Show, PrintsTheVisibleColumnsAtFirst) {
    model::MemoryDataStore table;
    tests::fill(table, 2,
                {{ChannelKey::TxFreq, 145'500'000},
                 {ChannelKey::RxFreq, 145'500'000.0},
                 {ChannelKey::TxSub, 88.5F},
                 {ChannelKey::ModeBits, 1},
                 {ChannelKey::scan, true}});
    save(table, "Two");
    EXPECT_EQ(
        telvar({"show", path, "--channels", "1-2"}).out,
        "\tTx Frequency (MHz)\tRx Frequency (MHz)\tTx Subtone\tRx Subtone\tRF Mode\tScan\tWB/NB Selection\tExt PTT Tx "
        "Mode\n"
        "1\tX\tX\tX\tX\tX\tX\tX\tX\n"
        "2\t145.500000\t145.500000\t88.5 Hz\tDisabled\tSimplex\tYes\tWide\tAnalogue\n");
    const auto german = telvar({"show", path, "--channels", "2", "--locale", ","}).out;
    EXPECT_TRUE(german.ends_with("\n2\t145,500000\t145,500000\t88,5 Hz\tDisabled\tSimplex\tYes\tWide\tAnalogue\n"))
        << german;
    EXPECT_EQ(telvar({"--json", "show", path, "--channels", "2"}).out,
              "{\"file\": \"" + path +
                  "\", \"title\": \"Two\", \"headings\": [\"\", \"Tx Frequency (MHz)\", \"Rx Frequency (MHz)\", "
                  "\"Tx Subtone\", \"Rx Subtone\", \"RF Mode\", \"Scan\", \"WB/NB Selection\", \"Ext PTT Tx Mode\"], "
                  "\"rows\": "
                  "[[\"2\", \"145.500000\", \"145.500000\", \"88.5 Hz\", \"Disabled\", \"Simplex\", \"Yes\", \"Wide\", "
                  "\"Analogue\"]]}\n");
}

TEST_F(Show, ReadsStandardInput) {
    EXPECT_EQ(telvar({"show", "-", "--channels", "1"}, store::tableText(store::emptyTable(), "").value()).status, 0);
    const auto damaged = telvar({"show", "-"}, "{");
    EXPECT_EQ(damaged.status, 2);
    EXPECT_TRUE(damaged.err.starts_with("standard input: damaged at line 1")) << damaged.err;
}

TEST_F(Show, RefusesWhatItCannotShow) {
    saveEmpty();
    EXPECT_EQ(refusal({"show", folder / "missing.telvar"}),
              (folder / "missing.telvar") + ": No such file or directory.");
    EXPECT_EQ(refusal({"show", folder / "a.csv"}), (folder / "a.csv") + ": No such file or directory.");
    EXPECT_EQ(refusal({"show", folder / "a.txt"}), (folder / "a.txt") + ": The name must end in .telvar or .csv.");
    EXPECT_EQ(refusal({"show", path, "--channels", "0"}),
              "telvar: --channels takes numbers and ranges of 1 to 255 such as 1-20,25, not \"0\".");
    TemporaryFolder::write(
        path, R"({"format": "telvar-channel-table", "version": 1, "channels": [{"channel": 4, "scan": 1}]})");
    EXPECT_EQ(refusal({"show", path}), path + ": channel 4: \"scan\" must be true or false, not 1.");
}

TEST_F(Set, PutsValuesOfSeveralChannelsAndOfTheRadio) {
    saveEmpty();
    const auto ran =
        telvar({"set", path, "TxFreq=145500000", "TxSub=88.5", "scan=Yes", "P25TalkgroupID=00fF", "P25BoardFitted=true",
                "sm=2", "title=A = b", "HardwareRevision= 2.4 ", "--channel", "3,7-8"});
    EXPECT_EQ(ran.status, 0) << ran.err;
    for (const auto channel : std::array<std::int16_t, 3>{3, 7, 8}) {
        EXPECT_EQ(stored(channel, ChannelKey::TxFreq), base::Value(145'500'000));
        EXPECT_EQ(stored(channel, ChannelKey::TxSub), base::Value(88.5F));
        EXPECT_EQ(stored(channel, ChannelKey::scan), base::Value(true));
        EXPECT_EQ(stored(channel, ChannelKey::P25TalkgroupID), base::textValue("00fF"));
    }
    EXPECT_EQ(stored(4, ChannelKey::TxFreq), base::Value(0));
    const auto contents = store::loadTable(path).value();
    EXPECT_EQ(contents.radio[static_cast<std::size_t>(model::StoreMember::P25BoardFitted)], base::Value(true));
    EXPECT_EQ(contents.radio[static_cast<std::size_t>(model::StoreMember::HardwareRevision)], base::Value(2.4F));
    EXPECT_EQ(contents.referenceDividerScaling, 2);
    EXPECT_EQ(contents.title, "A = b");
}

TEST_F(Set, ReadsNumbersInTheGivenLocale) {
    saveEmpty();
    EXPECT_EQ(telvar({"set", path, "TxSub=67,1", "--channel", "1", "--locale", ","}).status, 0);
    EXPECT_EQ(stored(1, ChannelKey::TxSub), base::Value(67.1F));
    EXPECT_EQ(refusal({"set", path, "TxSub=67.1", "--channel", "1", "--locale", ","}),
              "telvar: \"TxSub\" must be a number of hertz, not \"67.1\".");
}

TEST_F(Set, ChangesNothingWhenOneValueIsRefused) {
    saveEmpty();
    const auto refused = [&](const std::string& argument) {
        return refusal({"set", path, "TxFreq=1000000", argument, "--channel", "1"});
    };
    EXPECT_EQ(refused("RxFreq=12a"), R"(telvar: "RxFreq" must be a number of hertz, not "12a".)");
    EXPECT_EQ(refused("RxFreq="), R"(telvar: "RxFreq" must be a number of hertz, not "".)");
    EXPECT_EQ(refused("RxFreq=1e999"), R"(telvar: "RxFreq" is too large a number.)");
    EXPECT_EQ(refused("TxLevel=2.5"), R"(telvar: "TxLevel" must be a whole number, not 2.5.)");
    EXPECT_EQ(refused("scan=maybe"), R"(telvar: "scan" must be true or false, not "maybe".)");
    EXPECT_EQ(refused("P25TalkgroupID=12G4"),
              R"(telvar: "P25TalkgroupID" must be four hexadecimal digits, not "12G4".)");
    EXPECT_EQ(refused("P25TalkgroupID=123"), R"(telvar: "P25TalkgroupID" must be four hexadecimal digits, not "123".)");
    EXPECT_EQ(refused("P25BoardFitted=2"), R"(telvar: "P25BoardFitted" must be true or false, not "2".)");
    EXPECT_EQ(refused("ChannelSpacing=x"), R"(telvar: "ChannelSpacing" must be a whole number, not "x".)");
    EXPECT_EQ(refused("title=\xff"), R"(telvar: "title" must be text in UTF-8.)");
    EXPECT_EQ(refused("rxfreq=1"), R"(telvar: there is no key "rxfreq"; did you mean "RxFreq"?)");
    EXPECT_EQ(refused("Volume=1"), R"(telvar: there is no key "Volume".)");
    EXPECT_EQ(refused("SelectedChannel=1"), R"(telvar: "SelectedChannel" is no part of a table.)");
    EXPECT_EQ(refused("TxFreq=2"), R"(telvar: "TxFreq" is given twice.)");
    EXPECT_EQ(refused("RxFreq"), R"(telvar: "RxFreq" is not KEY=VALUE.)");
    EXPECT_EQ(refusal({"set", path, "TxFreq=1"}),
              R"(telvar: "TxFreq" belongs to a channel; say which with --channel.)");
    EXPECT_EQ(refusal({"set", path, "sm=1", "--channel", "1"}),
              "telvar: --channel is given, but no key that belongs to a channel.");
    EXPECT_EQ(refusal({"set", path, "TxFreq=1", "--channel", "256"}),
              "telvar: --channel takes a number of 1 to 255, or several such as 1-20,25, not \"256\".");
}

TEST_F(Set, KeepsTheOldFileAndWhatItDoesNotKnow) {
    const std::string old = R"({"format": "telvar-channel-table", "version": 1, "source": "plan"})";
    TemporaryFolder::write(path, old);
    EXPECT_EQ(telvar({"set", path, "title=New", "--json"}).out, "{\"file\": \"" + path + "\", \"changed\": true}\n");
    EXPECT_EQ(store::loadTable(path).value().unknown.size(), 1U);
    EXPECT_EQ(TemporaryFolder::read(path + ".bak"), old);
}

TEST_F(Set, WritesNothingWhereNothingChanges) {
    saveEmpty();
    EXPECT_EQ(telvar({"set", path, "TxFreq=0", "--channel", "1", "--json"}).out,
              "{\"file\": \"" + path + "\", \"changed\": false}\n");
    EXPECT_EQ(folder.entries(), Names{"table.telvar"});
}

TEST_F(Set, ChangesCsvInItsOwnForm) {
    const auto csv = folder / "table.csv";
    saveEmpty();
    ASSERT_EQ(telvar({"convert", path, csv}).status, 0);
    ASSERT_EQ(telvar({"set", csv, "RxFreq=145500000", "--channel", "4"}).status, 0);
    const auto text = TemporaryFolder::read(csv);
    EXPECT_TRUE(text.starts_with("Channel,")) << text;
    EXPECT_NE(text.find("\r\n4,X,145.500000,"), std::string::npos) << text;
    EXPECT_EQ(telvar({"set", csv, "sm=1"}).err, csv + ": \"sm\" is not part of CSV.\n");
    EXPECT_EQ(TemporaryFolder::read(csv), text);
}

TEST_F(Set, PassesATableThroughStandardStreams) {
    const auto ran = telvar({"set", "-", "title=Piped"}, store::tableText(store::emptyTable(), "").value());
    EXPECT_EQ(ran.status, 0) << ran.err;
    EXPECT_EQ(store::parseTable(ran.out, "").value().title, "Piped");
    const auto both = telvar({"set", "-", "title=x", "--json"});
    EXPECT_EQ(both.status, 2);
    EXPECT_EQ(both.err, "telvar: --json and the table itself cannot both go to standard output.\n");
}

TEST_F(Convert, WritesATableAgainAsItWas) {
    save(*tests::fullStore(), "All");
    const auto copy = folder / "copy.telvar";
    EXPECT_EQ(telvar({"convert", path, copy}).status, 0);
    EXPECT_EQ(TemporaryFolder::read(copy), TemporaryFolder::read(path));
    EXPECT_EQ(telvar({"convert", path, "-"}).out, TemporaryFolder::read(path));
    EXPECT_EQ(telvar({"convert", "-", "-"}, TemporaryFolder::read(path)).out, TemporaryFolder::read(path));
}

TEST_F(Convert, WritesCsv) {
    save(*tests::fullStore());
    const auto csv = folder / "table.csv";
    EXPECT_EQ(telvar({"convert", path, csv, "--json"}).out,
              "{\"in\": \"" + path + "\", \"out\": \"" + csv + "\", \"format\": \"csv\"}\n");
    const auto text = TemporaryFolder::read(csv);
    EXPECT_EQ(std::ranges::count(text, '\n'), 256);
    EXPECT_EQ(telvar({"convert", path, "-", "--to", "csv"}).out, text);
}

// The lines of the channels; a table's title and radio are no part of CSV.
[[nodiscard]] std::string channelLines(const std::string& table) { return table.substr(table.find("\"channels\"")); }

TEST_F(Convert, BringsEverySampleThereAndBackByteByByte) {
    for (const std::string name : {"maritime", "pmr446", "gmrs", "fixed-bandwidth", "every-reading"}) {
        const std::string sample = std::string(TELVAR_SOURCE_DIR "/samples/") + name + ".telvar";
        const auto csv = folder / (name + ".csv");
        const auto back = folder / (name + ".telvar");
        for (const auto* separator : {".", ","}) {
            ASSERT_EQ(telvar({"convert", sample, csv, "--locale", separator}).status, 0);
            const auto ran = telvar({"convert", csv, back, "--like", sample, "--locale", separator});
            ASSERT_EQ(ran.status, 0) << ran.err;
            EXPECT_EQ(TemporaryFolder::read(back), TemporaryFolder::read(sample)) << name;
        }
        const auto alone = telvar({"convert", csv, "-", "--locale", ","});
        EXPECT_EQ(channelLines(alone.out), channelLines(TemporaryFolder::read(sample))) << name << alone.err;
    }
}

TEST_F(Convert, KeepsTheRadioOfTheTableThatItReplaces) {
    auto contents = store::emptyTable();
    contents.title = "Harbour";
    contents.referenceDividerScaling = 2;
    contents.channels[8][0] = 145'500'000;
    contents.unknown = {{"source", "\"plan\""}};
    ASSERT_TRUE(store::saveTable(path, contents));
    const auto csv = folder / "table.csv";
    ASSERT_EQ(telvar({"convert", path, csv}).status, 0);
    ASSERT_EQ(telvar({"set", csv, "TxFreq=146000000", "--channel", "9"}).status, 0);
    ASSERT_EQ(telvar({"convert", csv, path}).status, 0);
    contents.channels[8][0] = 146'000'000;
    EXPECT_EQ(store::loadTable(path).value(), contents);
    EXPECT_EQ(telvar({"convert", csv, "-"}).out.find("Harbour"), std::string::npos);
}

TEST_F(Convert, ReadsCsvFromStandardInput) {
    save(*tests::fullStore());
    const auto csv = telvar({"convert", path, "-", "--to", "csv"}).out;
    EXPECT_EQ(telvar({"convert", "-", "-", "--from", "csv"}, csv).out, TemporaryFolder::read(path));
    EXPECT_EQ(telvar({"convert", "-", "-", "--from", "csv", "--to", "csv"}, csv).out, csv);
}

TEST_F(Convert, LeavesTheTableAloneWhenARowIsRefused) {
    const auto csv = folder / "table.csv";
    auto text = telvar({"convert", TELVAR_SOURCE_DIR "/samples/maritime.telvar", "-", "--to", "csv"}).out;
    saveEmpty();
    TemporaryFolder::write(csv, text + "256" + text.substr(text.rfind(',', text.size() - 3)));
    const auto lines = std::ranges::count(text, '\n');
    EXPECT_EQ(refusal({"convert", csv, path}),
              csv + ": line " + std::to_string(lines + 1) + ": has 2 fields where the first line has 61.");
    TemporaryFolder::write(csv, text + text.substr(text.find('\n') + 1));
    EXPECT_EQ(refusal({"convert", csv, path}),
              csv + ": line " + std::to_string(lines + 1) + ": channel 1: is there twice, first in line 2.");
    TemporaryFolder::write(path, "precious");
    TemporaryFolder::write(csv, text);
    EXPECT_TRUE(refusal({"convert", csv, path}).starts_with(path + ": damaged at line 1"));
}

TEST_F(Convert, RefusesACellAsTheGridWould) {
    auto text = telvar({"convert", TELVAR_SOURCE_DIR "/samples/fixed-bandwidth.telvar", "-", "--to", "csv"}).out;
    // Without the keys: everything behind the 27th column goes.
    std::string cells;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::size_t end = 0;
        for (std::size_t column = 0; column < editing::columnCount; ++column) {
            end = line.find(',', end) + 1;
        }
        cells += line.substr(0, end - 1) + "\n";
    }
    const auto csv = folder / "cells.csv";
    TemporaryFolder::write(csv, cells);
    EXPECT_EQ(telvar({"convert", csv, "-"}).err,
              csv + ": line 2: channel 1: \"WB/NB Selection\": Invalid value for Wide/Narrow band (must be Wide or "
                    "Narrow) WB/NB.\n");
    const auto taken = telvar({"convert", csv, path, "--like", TELVAR_SOURCE_DIR "/samples/fixed-bandwidth.telvar"});
    EXPECT_EQ(taken.status, 0) << taken.err;
    EXPECT_EQ(telvar({"show", path}).out, telvar({"show", TELVAR_SOURCE_DIR "/samples/fixed-bandwidth.telvar"}).out);
}

TEST_F(Convert, RefusesWhatItCannotReadOrWrite) {
    saveEmpty();
    EXPECT_EQ(refusal({"convert", path, folder / "a.txt"}),
              (folder / "a.txt") + ": The name must end in .telvar or .csv.");
    EXPECT_EQ(refusal({"convert", path, folder / "missing/a.csv"}),
              (folder / "missing/a.csv") + ": No such file or directory.");
    EXPECT_EQ(refusal({"convert", folder / "a", path}), (folder / "a") + ": The name must end in .telvar or .csv.");
    EXPECT_EQ(refusal({"convert", path, path, "--like", path}), "telvar: --like is for a table that is read from CSV.");
    EXPECT_EQ(refusal({"convert", "-", path, "--from", "csv", "--like", "-"}),
              "telvar: IN and --like cannot both come from standard input.");
    std::filesystem::create_directory(TemporaryFolder::pathOf(folder / "folder.csv"));
    EXPECT_EQ(refusal({"convert", path, folder / "folder.csv"}), (folder / "folder.csv") + ": Is a folder.");
}

}  // namespace
}  // namespace telvar::cli
