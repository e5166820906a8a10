#include "store/table_file.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/conversion.h"
#include "store/table_values.h"
#include "support/table_builder.h"
#include "support/temporary_folder.h"

namespace telvar::store {
namespace {

using model::ChannelKey;
using tests::TemporaryFolder;

[[nodiscard]] base::Value& valueOf(TableContents& contents, std::int16_t channel, ChannelKey key) {
    return contents.channels[static_cast<std::size_t>(channel - 1)][static_cast<std::size_t>(key)];
}

[[nodiscard]] TableContents parsed(const std::string& text) {
    auto contents = parseTable(text, "test.telvar");
    EXPECT_TRUE(contents) << contents.error().sentence();
    return contents ? *contents : TableContents();
}

[[nodiscard]] std::string written(const TableContents& contents) {
    const auto text = tableText(contents, "test.telvar");
    EXPECT_TRUE(text) << text.error().sentence();
    return text.value_or("");
}

// The lines of the channels alone, without brackets and commas around them.
[[nodiscard]] std::string channelLines(const TableContents& contents) {
    const auto text = written(contents);
    const auto start = text.find("\"channels\": [") + 13;
    return text.substr(start, text.rfind(']') - start);
}

TEST(TableFile, AnEmptyTableIsTheRadioAndNoChannel) {
    auto contents = emptyTable();
    contents.title = "Marine";
    EXPECT_EQ(written(contents), R"({
  "format": "telvar-channel-table",
  "version": 1,
  "title": "Marine",
  "radio": {
    "BandwidthSwitchable": true,
    "FCCNarrowBandRadio": false,
    "HardwareRevision": 3,
    "P25BoardFitted": false,
    "RadioConfigurationCode": 0,
    "TxReferenceFrequency": 12800000,
    "RxReferenceFrequency": 12800000,
    "LocalOscOffset": 21400000,
    "TxSynthChipInfo": "Fitted",
    "RxSynthChipInfo": "Fitted",
    "DCSOptionFitted": true,
    "ChannelSpacing": 25000,
    "sm": 0
  },
  "channels": []
}
)");
}

TEST(TableFile, AChannelIsOneLineOfWhatDiffersFromAnEmptyOne) {
    auto contents = emptyTable();
    valueOf(contents, 6, ChannelKey::RxFreq) = 156'300'000.0;
    valueOf(contents, 6, ChannelKey::TxFreq) = 156'300'000;
    valueOf(contents, 6, ChannelKey::scan) = true;
    valueOf(contents, 6, ChannelKey::TxSub) = 88.5F;
    valueOf(contents, 6, ChannelKey::P25TalkgroupID) = base::textValue("00A1");
    valueOf(contents, 255, ChannelKey::TxPower) = std::int16_t{0};
    // Of another type, but what an empty channel holds.
    valueOf(contents, 7, ChannelKey::SynthStep) = 12'500.0;
    valueOf(contents, 7, ChannelKey::TxLevel) = base::Empty{};
    EXPECT_EQ(channelLines(contents), R"(
    {"channel": 6, "TxFreq": 156300000, "RxFreq": 156300000, "TxSub": 88.5, "scan": true, "P25TalkgroupID": "00A1"},
    {"channel": 255, "TxPower": 0}
  )");
}

TEST(TableFile, EveryKeyOfEveryChannelSurvives) {
    const auto store = tests::fullStore();
    const auto loaded = parsed(written(contentsOf(*store)));
    model::MemoryDataStore copy;
    putInto(copy, loaded);
    EXPECT_EQ(tests::tableText(copy), tests::tableText(*store));
}

TEST(TableFile, SavingWhatWasLoadedGivesTheSameBytes) {
    const auto text = written(contentsOf(*tests::fullStore()));
    EXPECT_EQ(written(parsed(text)), text);
}

TEST(TableFile, RadioWideValuesSurvive) {
    model::MemoryDataStore store;
    store.put(model::StoreMember::HardwareRevision, 2.4F);
    store.put(model::StoreMember::LocalOscOffset, -21'400'000);
    store.put(model::StoreMember::TxSynthChipInfo, base::textValue("N.A."));
    store.put(model::StoreMember::BandwidthSwitchable, false);
    store.setReferenceDividerScaling(2);
    const auto contents = contentsOf(store);
    EXPECT_EQ(parsed(written(contents)), contents);
}

TEST(TableFile, FractionsOfAHertzSurviveToTheLastBit) {
    auto contents = emptyTable();
    const double frequency = 145.0000004 * 1e6;
    ASSERT_NE(frequency, std::trunc(frequency));
    valueOf(contents, 1, ChannelKey::TxFreq) = frequency;
    valueOf(contents, 1, ChannelKey::RxFreq) = 5e9;
    valueOf(contents, 1, ChannelKey::SynthStep) = base::toDouble(base::Value(5.2F * 1000.0F));
    const auto text = written(contents);
    auto loaded = parsed(text);
    EXPECT_EQ(std::get<double>(valueOf(loaded, 1, ChannelKey::TxFreq)), frequency);
    EXPECT_EQ(std::get<double>(valueOf(loaded, 1, ChannelKey::RxFreq)), 5e9);
    EXPECT_EQ(std::get<std::int32_t>(valueOf(loaded, 1, ChannelKey::SynthStep)), 5200);
    EXPECT_NE(text.find(R"("RxFreq": 5000000000,)"), std::string::npos) << text;
    EXPECT_EQ(written(loaded), text);
}

TEST(TableFile, AToneIsASingle) {
    auto contents = emptyTable();
    valueOf(contents, 1, ChannelKey::TxSub) = 67.1;
    valueOf(contents, 1, ChannelKey::RxSub) = 250.3F;
    auto loaded = parsed(written(contents));
    EXPECT_EQ(std::get<float>(valueOf(loaded, 1, ChannelKey::TxSub)), 67.1F);
    EXPECT_EQ(std::get<float>(valueOf(loaded, 1, ChannelKey::RxSub)), 250.3F);
}

TEST(TableFile, WhatIsMissingIsAsInAnEmptyTable) {
    EXPECT_EQ(parsed(R"({"format": "telvar-channel-table", "version": 1})"), emptyTable());
    auto contents = emptyTable();
    valueOf(contents, 9, ChannelKey::TxFreq) = 446'006'250;
    EXPECT_EQ(parsed(R"({"version": 1e0, "format": "telvar-channel-table",
                         "channels": [{"TxFreq": 446006250.0, "channel": 9}, {"channel": 10}]})"),
              contents);
}

TEST(TableFile, AByteOrderMarkAndOtherLineEndsAreRead) {
    const auto text =
        "\xEF\xBB\xBF{\r\n\"format\": \"telvar-channel-table\",\r\n\"version\": 1,\r\n\"title\": \"K\\u00fcste\"}\r\n";
    EXPECT_EQ(parsed(text).title, "Küste");
}

TEST(TableFile, UnknownMembersAreKeptWhereTheyWere) {
    const std::string text = R"({
  "format": "telvar-channel-table",
  "version": 1,
  "title": "Kept",
  "source": {"name": "plan \"A\"", "pages": [1, 2.50, 1e3, -0], "none": null, "empty": {}, "list": []},
  "radio": {
    "BandwidthSwitchable": true,
    "FCCNarrowBandRadio": false,
    "HardwareRevision": 3,
    "P25BoardFitted": false,
    "RadioConfigurationCode": 0,
    "TxReferenceFrequency": 12800000,
    "RxReferenceFrequency": 12800000,
    "LocalOscOffset": 21400000,
    "TxSynthChipInfo": "Fitted",
    "RxSynthChipInfo": "Fitted",
    "DCSOptionFitted": true,
    "ChannelSpacing": 25000,
    "sm": 0,
    "SerialNumber": "A-17",
    "MessageTitle": 12345678901234567890123
  },
  "channels": [
    {"channel": 3, "TxFreq": 145000000, "name": "caf\u00e9"},
    {"channel": 4, "note": true}
  ]
}
)";
    auto expected = text;
    expected.replace(expected.find("\\u00e9"), 6, "é");
    EXPECT_EQ(written(parsed(text)), expected);
}

TEST(TableFile, WhatCouldNotBeReadBackIsNotWritten) {
    const auto refusalOf = [](ChannelKey key, const base::Value& value) {
        auto contents = emptyTable();
        valueOf(contents, 5, key) = value;
        const auto text = tableText(contents, "test.telvar");
        return text ? "" : text.error().sentence();
    };
    EXPECT_EQ(refusalOf(ChannelKey::TxLevel, 2.5),
              R"(test.telvar: channel 5: "TxLevel" must be a whole number, not 2.5.)");
    EXPECT_EQ(refusalOf(ChannelKey::TxLevel, 3e9),
              R"(test.telvar: channel 5: "TxLevel" must be a whole number, not 3000000000.)");
    EXPECT_EQ(refusalOf(ChannelKey::TxSub, 1e300), R"(test.telvar: channel 5: "TxSub" is too large a number.)");
    EXPECT_EQ(refusalOf(ChannelKey::TxFreq, base::textValue("abc")),
              R"(test.telvar: channel 5: "TxFreq" must be a number of hertz, not text.)");
    // Numbers given as texts are numbers.
    EXPECT_EQ(refusalOf(ChannelKey::TxFreq, base::textValue("145000000")), "");
}

TEST(TableFile, IsLoadedAndSavedAsAFile) {
    const TemporaryFolder folder;
    const auto path = folder / "Küste.telvar";
    auto contents = emptyTable();
    contents.title = "Küste";
    ASSERT_TRUE(saveTable(path, contents));
    EXPECT_EQ(TemporaryFolder::read(path), written(contents));
    EXPECT_EQ(loadTable(path).value(), contents);
    EXPECT_EQ(loadTable(folder / "missing.telvar").error().path, folder / "missing.telvar");
}

TEST(TableFile, AFileBeyondAllTablesIsRefusedUnread) {
    const TemporaryFolder folder;
    const auto path = folder / "large.telvar";
    TemporaryFolder::write(path, "");
    std::filesystem::resize_file(TemporaryFolder::pathOf(path), largestTableFile + 1);
    EXPECT_EQ(loadTable(path).error().sentence(), path + ": Is larger than 67108864 bytes.");
}

TEST(TableFile, ALargeFileOfUnknownMembersIsRead) {
    const std::string text = R"({"format": "telvar-channel-table", "version": 1, "note": ")" +
                             std::string(10'000'000, 'x') + R"(", "list": [0)" + std::string(2'000'000, '1') + "]}";
    EXPECT_FALSE(parseTable(text, "x"));
    const std::string list = R"({"format": "telvar-channel-table", "version": 1, "note": ")" +
                             std::string(10'000'000, 'x') + R"(", "list": [1)" + std::string(200, '0') + "]}";
    EXPECT_EQ(parsed(list).unknown.size(), 2U);
}

}  // namespace
}  // namespace telvar::store
