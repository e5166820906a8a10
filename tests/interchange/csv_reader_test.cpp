#include "interchange/csv_reader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <limits>
#include <random>
#include <set>

#include "base/conversion.h"
#include "base/text.h"
#include "editing/cell_storing.h"
#include "interchange/csv_headings.h"
#include "interchange/csv_writer.h"
#include "store/table_file.h"
#include "support/recording_store.h"
#include "support/table_builder.h"

namespace telvar::interchange {
namespace {

using model::ChannelKey;
using model::StoreMember;
using Fields = std::vector<std::string>;

// -- a table as CSV, taken apart and put together by hand -------------------------------------------------------------

[[nodiscard]] Fields cellHeadings() {
    Fields headings{"Channel"};
    for (std::size_t column = 1; column < editing::columnCount; ++column) {
        headings.emplace_back(editing::columns[column].header);
    }
    return headings;
}

[[nodiscard]] Fields keyHeadings() {
    Fields headings{"Channel"};
    for (const auto& info : model::channelKeys) {
        headings.emplace_back(info.name);
    }
    return headings;
}

[[nodiscard]] std::string line(const Fields& fields) {
    std::string text;
    for (const auto& field : fields) {
        text += field + ",";
    }
    text.back() = '\n';
    return text;
}

// A row of cells that is accepted as it stands.
[[nodiscard]] Fields goodCells() {
    return {"7", "145.5", "145", "88.5 Hz", "023", "Simplex", "Yes",  "Narrow", "Analogue",
            "1", "2",     "3",   "4",       "5",   "6",       "7",    "6",      "6.25",
            "9", "8",     "5",   "11",      "5",   "No",      "12aB", "1234",   "0000"};
}

class ReadCsv : public testing::Test {
protected:
    [[nodiscard]] std::string refusal(const std::string& text) {
        const auto read = readCsv(text, around, {});
        return read ? "accepted" : read.error();
    }
    // Of a row of cells with one of them replaced; column 0 is the channel.
    [[nodiscard]] std::string refusalWith(std::size_t column, const std::string& cell) {
        auto cells = goodCells();
        cells[column] = cell;
        return refusal(line(cellHeadings()) + line(cells));
    }
    [[nodiscard]] store::TableContents read(const std::string& text, const base::NumberFormat& format = {}) {
        auto contents = readCsv(text, around, format);
        EXPECT_TRUE(contents) << contents.error();
        return contents.value_or(store::emptyTable());
    }
    [[nodiscard]] base::Value at(const store::TableContents& contents, int channel, ChannelKey key) {
        return contents.channels[static_cast<std::size_t>(channel - 1)][static_cast<std::size_t>(key)];
    }
    void radio(StoreMember member, const base::Value& value) { around.radio[static_cast<std::size_t>(member)] = value; }

    store::TableContents around = store::emptyTable();
};

// -- there and back ---------------------------------------------------------------------------------------------------

using Random = std::mt19937;

[[nodiscard]] int below(Random& random, int count) { return std::uniform_int_distribution<int>(0, count - 1)(random); }

[[nodiscard]] base::Value anyNumber(Random& random) {
    switch (below(random, 6)) {
    case 0:
        return std::numeric_limits<std::int32_t>::min();
    case 1:
        return 5e9 + below(random, 1000);
    case 2:
        return -0.1 * below(random, 1'000'000);
    case 3:
        return std::bit_cast<double>((std::uint64_t{random()} << 30U) | (std::uint64_t{0x3FF} << 52U));
    case 4:
        return 1e300;
    default:
        return 10'000'000 + below(random, 990'000'000);
    }
}

[[nodiscard]] base::Value anyValue(Random& random, model::KeyKind kind) {
    static const Fields codes{"",  "0012", "12E4", " 12 ", "a\"b\"", "1,2", "line\r\nbreak", "\r", "\n", "K\xC3\xBCste",
                              ";", "\t",   "=1+1", "-5",   "X",      "\"",  "true"};
    switch (kind) {
    case model::KeyKind::Frequency:
    case model::KeyKind::Step:
        return anyNumber(random);
    case model::KeyKind::Tone:
        return static_cast<float>(below(random, 4000)) / 7.0F;
    case model::KeyKind::Boolean:
        return below(random, 2) == 0;
    case model::KeyKind::Code:
        return base::textValue(codes[static_cast<std::size_t>(below(random, static_cast<int>(codes.size())))]);
    case model::KeyKind::Integer:
        break;
    }
    return below(random, 3) == 0 ? std::int32_t(random()) : below(random, 300);
}

// As it comes out of a table file.
[[nodiscard]] store::TableContents anyTable(Random& random) {
    auto contents = store::emptyTable();
    contents.radio[static_cast<std::size_t>(StoreMember::BandwidthSwitchable)] = below(random, 2) == 0;
    contents.title = "Random";
    for (auto& channel : contents.channels) {
        for (const auto& info : model::channelKeys) {
            if (below(random, 4) == 0) {
                channel[static_cast<std::size_t>(info.key)] = anyValue(random, info.kind);
            }
        }
    }
    const auto text = store::tableText(contents, "");
    EXPECT_TRUE(text) << text.error().sentence();
    return store::parseTable(*text, "").value();
}

[[nodiscard]] std::string written(const store::TableContents& contents, const base::NumberFormat& format) {
    model::MemoryDataStore table;
    store::putInto(table, contents);
    const auto text = csvText(table, format);
    EXPECT_TRUE(text) << text.error();
    return text.value_or("");
}

TEST_F(ReadCsv, GivesEveryTableBackWhole) {
    Random random(1);
    for (int round = 0; round < 20; ++round) {
        const auto contents = anyTable(random);
        const base::NumberFormat format{.decimalSeparator = round % 2 == 0 ? '.' : ','};
        auto rest = contents;
        rest.channels = store::emptyTable().channels;
        const auto back = readCsv(written(contents, format), rest, format);
        ASSERT_TRUE(back) << back.error();
        EXPECT_EQ(store::tableText(*back, "").value(), store::tableText(contents, "").value());
    }
}

TEST_F(ReadCsv, KeysAloneAreATable) {
    Random random(2);
    const auto contents = anyTable(random);
    // The cells stand before the keys, none of them has a comma or a line break in it where the codes are plain.
    auto plain = contents;
    for (auto& channel : plain.channels) {
        for (const auto& info : model::channelKeys) {
            if (info.kind == model::KeyKind::Code) {
                channel[static_cast<std::size_t>(info.key)] = base::textValue("beef");
            }
        }
    }
    std::string text;
    const auto whole = written(plain, {});
    for (const auto row : base::splitAt(whole, '\n')) {
        const auto fields = base::splitAt(row, ',');
        if (fields.size() > editing::columnCount) {
            Fields kept{std::string(fields[0])};
            kept.insert(kept.end(), fields.begin() + editing::columnCount, fields.end());
            kept.back().pop_back();
            text += line(kept);
        }
    }
    EXPECT_TRUE(text.starts_with(line(keyHeadings())));
    around.radio = plain.radio;
    plain.title = {};
    EXPECT_EQ(store::tableText(read(text), "").value(), store::tableText(plain, "").value());
}

TEST_F(ReadCsv, KeepsWhatCsvDoesNotHold) {
    around.title = "Harbour";
    around.referenceDividerScaling = 3;
    radio(StoreMember::HardwareRevision, 2.5F);
    around.unknown = {{"source", "1"}};
    around.unknownOfChannel[9] = {{"note", "2"}};
    around.channels[0][0] = 145'000'000;
    auto expected = around;
    expected.channels = store::emptyTable().channels;
    EXPECT_TRUE(read(line(keyHeadings())) == expected);
}

// -- cells ------------------------------------------------------------------------------------------------------------

TEST_F(ReadCsv, CellsAreStoredAsAPasteDoes) {
    const auto contents = read(line(cellHeadings()) + line(goodCells()));
    model::MemoryDataStore table;
    const auto cells = goodCells();
    for (std::int16_t column = 1; column <= editing::lastColumn; ++column) {
        editing::storeCell({.store = table, .channel = 7, .format = {}}, column,
                           cells[static_cast<std::size_t>(column)]);
    }
    EXPECT_TRUE(contents.channels == store::contentsOf(table).channels);
    EXPECT_EQ(at(contents, 7, ChannelKey::TxFreq), base::Value(145'500'000.0));
    EXPECT_EQ(at(contents, 7, ChannelKey::RxCTCSSDCS), base::Value(true));
    EXPECT_EQ(base::toBits(at(contents, 7, ChannelKey::ModeBits)), 1 + 16 + 128);
    // Pasted as it is, although shown inverted.
    EXPECT_EQ(base::toInt32(at(contents, 7, ChannelKey::RefOscFreq)), 2);
}

TEST_F(ReadCsv, AnXIsNoValue) {
    Fields cells{"9"};
    cells.resize(editing::columnCount, "X");
    EXPECT_TRUE(read(line(cellHeadings()) + line(cells)).channels == store::emptyTable().channels);
    cells = goodCells();
    cells[13] = cells[14] = cells[15] = " X ";
    EXPECT_EQ(at(read(line(cellHeadings()) + line(cells)), 7, ChannelKey::NBVCODev), base::Value(128));
    EXPECT_EQ(refusalWith(13, "x"), "line 2: channel 7: \"RefOscFreqNB\": Error in validating Pot Value (Type "
                                    "mismatch) Ref Osc Freq NB");
}

TEST_F(ReadCsv, CellsAreHeldToTheColumnsRules) {
    EXPECT_EQ(refusalWith(1, "1000.000001"),
              "line 2: channel 7: \"Tx Frequency (MHz)\": Invalid channel frequency value "
              "(out of range) RX Freq");
    EXPECT_EQ(refusalWith(3, "Multiple"),
              "line 2: channel 7: \"Tx Subtone\": Invalid DCS value (not found in the table) TX Subtone");
    EXPECT_EQ(refusalWith(6, ""), "line 2: channel 7: \"Scan\": Invalid scan data value Scan");
    EXPECT_EQ(refusalWith(17, "30"), "line 2: channel 7: \"SynthStepTX\": Invalid Synthesizer Step size value (out of "
                                     "range) TX Synth Step Size");
    EXPECT_EQ(refusalWith(24, "12345"),
              "line 2: channel 7: \"P25TalkgroupID\": Invalid P25 Talkgroup value P25 Talkgroup ID");
    EXPECT_EQ(refusalWith(5, "Mixed Mode"),
              "line 2: channel 7: \"RF Mode\": Invalid value, there is no P25 board fitted "
              "for this mode RF Mode");
    radio(StoreMember::P25BoardFitted, true);
    EXPECT_EQ(refusalWith(5, "Mixed Mode"), "accepted");
    EXPECT_EQ(refusalWith(7, "N/A"), "line 2: channel 7: \"WB/NB Selection\": Invalid value for Wide/Narrow band (must "
                                     "be Wide or Narrow) WB/NB");
    radio(StoreMember::BandwidthSwitchable, false);
    EXPECT_EQ(refusalWith(7, "N/A"), "accepted");
}

TEST_F(ReadCsv, NumbersHaveTheDecimalSeparatorOfTheLocale) {
    auto headings = line(cellHeadings());
    std::ranges::replace(headings, ',', ';');
    auto cells = line(goodCells());
    std::ranges::replace(cells, ',', ';');
    std::ranges::replace(cells, '.', ',');
    const auto contents = read(headings + cells, {.decimalSeparator = ','});
    EXPECT_EQ(at(contents, 7, ChannelKey::SynthStep), base::Value(6250.0));
    EXPECT_EQ(
        refusal(headings + cells),
        "line 2: channel 7: \"Tx Frequency (MHz)\": Error in validating channel frequency (Type mismatch) RX Freq");
}

// -- cells and keys ---------------------------------------------------------------------------------------------------

class CellsAndKeys : public ReadCsv {
protected:
    CellsAndKeys() {
        auto keys = keyHeadings();
        headings.insert(headings.end(), keys.begin() + 1, keys.end());
        row.resize(headings.size());
    }
    void put(ChannelKey key, const std::string& text) {
        row[editing::columnCount + static_cast<std::size_t>(key)] = text;
    }
    [[nodiscard]] std::string text() { return line(headings) + line(row); }

    Fields headings = cellHeadings();
    Fields row = goodCells();
};

TEST_F(CellsAndKeys, AKeysOwnValueWins) {
    put(ChannelKey::TxFreq, "446006250");
    put(ChannelKey::scan, "FALSE");
    put(ChannelKey::P25TalkgroupID, "zz");
    put(ChannelKey::AccelInt, "3");
    const auto contents = read(text());
    EXPECT_EQ(at(contents, 7, ChannelKey::TxFreq), base::Value(446'006'250));
    EXPECT_EQ(at(contents, 7, ChannelKey::RxFreq), base::Value(145'000'000.0));
    EXPECT_EQ(at(contents, 7, ChannelKey::scan), base::Value(false));
    EXPECT_EQ(at(contents, 7, ChannelKey::P25TalkgroupID), base::textValue("zz"));
    EXPECT_EQ(at(contents, 7, ChannelKey::AccelInt), base::Value(3));
    EXPECT_EQ(at(contents, 7, ChannelKey::AccelProp), base::Value(0));
}

TEST_F(CellsAndKeys, ACellWhoseKeysAreAllThereIsNotLookedAt) {
    row[3] = "Invalid";
    put(ChannelKey::TxCTCSSDCS, "true");
    put(ChannelKey::TxDCSIndex, "200");
    EXPECT_EQ(refusal(text()),
              "line 2: channel 7: \"Tx Subtone\": Invalid DCS value (not found in the table) TX Subtone");
    put(ChannelKey::TxSub, "0");
    EXPECT_EQ(at(read(text()), 7, ChannelKey::TxDCSIndex), base::Value(200));
}

TEST_F(CellsAndKeys, ModeBitsOfTheirOwnWinOverAllModes) {
    put(ChannelKey::ModeBits, "64");
    EXPECT_EQ(at(read(text()), 7, ChannelKey::ModeBits), base::Value(64));
}

TEST_F(CellsAndKeys, AnEmptyTextIsAValueAndNothingIsNone) {
    put(ChannelKey::P25TalkgroupID, "\"\"");
    EXPECT_EQ(at(read(text()), 7, ChannelKey::P25TalkgroupID), base::textValue(""));
    put(ChannelKey::P25TalkgroupID, "");
    EXPECT_EQ(at(read(text()), 7, ChannelKey::P25TalkgroupID), base::textValue("12aB"));
}

TEST_F(CellsAndKeys, KeysHaveTheTypesOfTheTableFile) {
    put(ChannelKey::TxLevel, "2.5");
    EXPECT_EQ(refusal(text()), "line 2: channel 7: \"TxLevel\" must be a whole number, not 2.5");
    put(ChannelKey::TxLevel, std::string(100, 'x'));
    EXPECT_EQ(refusal(text()),
              "line 2: channel 7: \"TxLevel\" must be a whole number, not \"" + std::string(40, 'x') + "\"...");
    put(ChannelKey::TxLevel, "\"\"");
    EXPECT_EQ(refusal(text()), "line 2: channel 7: \"TxLevel\" must be a whole number, not \"\"");
}

// -- what is no table -------------------------------------------------------------------------------------------------

TEST_F(ReadCsv, RefusesHeadingsThatMakeNoTable) {
    const auto cells = line(cellHeadings());
    EXPECT_EQ(refusal(""), "is empty; a table begins with its headings");
    EXPECT_EQ(refusal("\xEF\xBB\xBF"), "is empty; a table begins with its headings");
    EXPECT_EQ(refusal("Volume," + cells), "line 1: there is no column \"Volume\"");
    EXPECT_EQ(refusal("scan," + cells), "accepted");
    EXPECT_EQ(refusal("SCAN," + cells), "line 1: there is no column \"SCAN\"");
    EXPECT_EQ(refusal("Scan," + cells), "line 1: the column \"Scan\" is there twice");
    EXPECT_EQ(refusal("Channel," + cells), "line 1: the column \"Channel\" is there twice");
    EXPECT_EQ(refusal(cells.substr(std::string("Channel,").size())), "line 1: the column \"Channel\" is missing");
    EXPECT_EQ(refusal("{\n"), "line 1: there is no column \"{\"");
    EXPECT_EQ(refusal("Channel,Tx Frequency (MHz),TxFreq\n"),
              "line 1: the column \"Rx Frequency (MHz)\" is missing, and so is the key \"RxFreq\"; a table needs all "
              "columns of the grid or all keys");
    EXPECT_EQ(refusal(std::string(300, ',')), "line 1: has more than 256 fields");
}

TEST_F(ReadCsv, ReadsColumnsInAnyOrder) {
    auto headings = cellHeadings();
    auto cells = goodCells();
    const auto expected = read(line(headings) + line(cells));
    std::ranges::reverse(headings);
    std::ranges::reverse(cells);
    headings[3] = "\" " + headings[3] + " \"";
    EXPECT_TRUE(read(line(headings) + line(cells)) == expected);
}

TEST_F(ReadCsv, KnowsTheTwoColumnsOfOneNameByTheirPlace) {
    const auto one = readHeadings({.line = 1, .fields = [] {
                                       std::vector<CsvField> fields;
                                       for (const auto& heading : keyHeadings()) {
                                           fields.push_back({.text = heading});
                                       }
                                       return fields;
                                   }()});
    ASSERT_TRUE(one) << one.error();
    EXPECT_EQ(one->cell[24], std::nullopt);
    EXPECT_EQ(one->key[static_cast<std::size_t>(ChannelKey::P25TalkgroupID)], model::channelKeyCount);
}

TEST_F(ReadCsv, RefusesRowsThatAreNoChannel) {
    const auto headings = line(cellHeadings());
    for (const auto* number : {"0", "256", "-1", "+1", "1.0", "a", "", "99999", "1 2"}) {
        EXPECT_EQ(refusalWith(0, number),
                  "line 2: \"Channel\" must be a number of 1 to 255, not \"" + std::string(number) + "\"");
    }
    EXPECT_EQ(refusalWith(0, " 255 "), "accepted");
    EXPECT_EQ(refusal(headings + line(goodCells()) + "\n" + line(goodCells())),
              "line 4: channel 7: is there twice, first in line 2");
    auto cells = goodCells();
    cells.pop_back();
    EXPECT_EQ(refusal(headings + line(cells)), "line 2: has 26 fields where the first line has 27");
    cells.resize(28, "0");
    EXPECT_EQ(refusal(headings + line(cells)), "line 2: has more than 27 fields");
    EXPECT_EQ(refusal(headings + "7,\"145"), "line 2: field 2: the closing quotation mark is missing");
    EXPECT_EQ(refusal(headings + "7,\xFF"), "line 2: is not text in UTF-8");
    EXPECT_EQ(refusal(headings + std::string("7,\0", 3)), "line 2: holds a zero byte");
}

TEST_F(ReadCsv, SkipsWhatASpreadsheetLeavesEmpty) {
    const auto cells = goodCells();
    auto headings = cellHeadings();
    headings.emplace_back("");
    auto row = goodCells();
    row.emplace_back("");
    EXPECT_TRUE(read(line(headings) + "\n" + line(row) + line(Fields(28)) + "\r\n") ==
                read(line(cellHeadings()) + line(cells)));
    row.back() = "remark";
    EXPECT_EQ(refusal(line(headings) + line(row)), "line 2: channel 7: column 28 has no heading but holds \"remark\"");
}

// -- the keys of a cell -----------------------------------------------------------------------------------------------

TEST(KeysOfCell, AreThoseThatStoringWrites) {
    const std::vector<std::pair<std::int16_t, std::string>> others{
        {3, "023"}, {4, "Multiple"}, {4, "Disabled"}, {5, "Mixed Mode"}, {7, "Wide"}, {8, "P25 Digital"}, {23, "Yes"}};
    std::array<std::set<std::string>, editing::columnCount> keys;
    const auto record = [&](std::int16_t column, const std::string& text) {
        model::MemoryDataStore table;
        tests::RecordingStore store(table);
        editing::storeCell({.store = store, .channel = 1, .format = {}}, column, text);
        for (const auto& info : model::channelKeys) {
            const auto write = "ChannelTable(0)." + std::string(info.name) + "=";
            if (std::ranges::find(store.calls(), write) != store.calls().end()) {
                keys[static_cast<std::size_t>(column)].insert(std::string(info.name));
            }
        }
    };
    const auto cells = goodCells();
    for (std::int16_t column = 1; column <= editing::lastColumn; ++column) {
        record(column, cells[static_cast<std::size_t>(column)]);
    }
    for (const auto& [column, text] : others) {
        record(column, text);
    }
    for (std::int16_t column = 1; column <= editing::lastColumn; ++column) {
        std::set<std::string> expected;
        for (const auto key : keysOfCell(column)) {
            expected.insert(std::string(model::infoOf(key).name));
        }
        EXPECT_EQ(keys[static_cast<std::size_t>(column)], expected) << column;
    }
}

}  // namespace
}  // namespace telvar::interchange
