// The sample tables: they are what their script writes, they load, and a radio would take them.
#include <gtest/gtest.h>

#include <cstdlib>
#include <set>

#include "base/conversion.h"
#include "store/table_file.h"
#include "support/build_paths.h"
#include "support/table_builder.h"
#include "support/temporary_folder.h"
#include "synth/table_check.h"

namespace telvar::cli {
namespace {

using tests::TemporaryFolder;

const std::string samples = TELVAR_SOURCE_DIR "/samples/";

[[nodiscard]] store::TableContents loaded(const std::string& name) {
    auto contents = store::loadTable(samples + name + ".telvar");
    EXPECT_TRUE(contents) << contents.error().sentence();
    return contents.value_or(store::emptyTable());
}

class Sample : public testing::TestWithParam<std::string> {};

INSTANTIATE_TEST_SUITE_P(Tables, Sample,
                         testing::Values("maritime", "pmr446", "gmrs", "fixed-bandwidth", "every-reading"));

TEST_P(Sample, IsSavedAgainByteByByte) {
    const auto text = TemporaryFolder::read(samples + GetParam() + ".telvar");
    EXPECT_EQ(store::tableText(store::parseTable(text, "").value(), "").value(), text);
}

TEST_P(Sample, NamesItsSource) {
    const auto contents = loaded(GetParam());
    EXPECT_NE(contents.title, "");
    ASSERT_EQ(contents.unknown.size(), 1U);
    EXPECT_EQ(contents.unknown.front().name, "source");
}

TEST_P(Sample, CouldBeSent) {
    model::MemoryDataStore table;
    store::putInto(table, loaded(GetParam()));
    const auto verdict = synth::checkFrequencies(table);
    EXPECT_TRUE(verdict.good);
    for (const auto& finding : verdict.findings) {
        ADD_FAILURE() << finding.text;
    }
    int scanned = 0;
    for (std::int16_t channel = 1; channel <= model::channelCount; ++channel) {
        scanned += base::isTrue(table.channel(channel).get(model::ChannelKey::scan)) ? 1 : 0;
    }
    EXPECT_LE(scanned, synth::largestScanCount);
}

TEST(Samples, AreWhatTheirScriptWrites) {
    const TemporaryFolder folder;
    const std::string command =
        "'" TELVAR_SOURCE_DIR "/tools/make_samples' '" TELVAR_BIN_DIR "/telvar' '" + folder.name() + "'";
    ASSERT_EQ(std::system(command.c_str()), 0);
    std::size_t tables = 0;
    for (const auto& entry : std::filesystem::directory_iterator(samples)) {
        if (entry.path().extension() == ".telvar") {
            const auto name = entry.path().filename().string();
            EXPECT_EQ(TemporaryFolder::read(folder / name), TemporaryFolder::read(samples + name)) << name;
            ++tables;
        }
    }
    EXPECT_EQ(folder.entries().size(), tables);
}

// What the cells of one column say, over every channel of a sample.
[[nodiscard]] std::set<std::string> readings(const std::string& name, std::size_t column) {
    model::MemoryDataStore table;
    store::putInto(table, loaded(name));
    std::set<std::string> texts;
    for (std::int16_t channel = 1; channel <= model::channelCount; ++channel) {
        texts.insert(tests::renderedRow(table, channel)[column]);
    }
    return texts;
}

TEST(EveryReading, HasEveryReading) {
    using Texts = std::set<std::string>;
    const std::string name = "every-reading";
    EXPECT_EQ(readings(name, 5), (Texts{"Duplex", "Mixed Mode", "P25 Repeater", "Repeater", "Simplex", "X"}));
    EXPECT_EQ(readings(name, 6), (Texts{"No", "X", "Yes"}));
    EXPECT_EQ(readings(name, 7), (Texts{"Narrow", "Wide", "X"}));
    EXPECT_EQ(readings(name, 8), (Texts{"Analogue", "P25 Digital", "X"}));
    EXPECT_EQ(readings(name, 19), (Texts{"5", "8", "X"}));
    EXPECT_EQ(readings(name, 22), (Texts{"5", "8", "X"}));
    EXPECT_EQ(readings(name, 23), (Texts{"No", "X", "Yes"}));
    // 83 codes, one position without a code, 39 tones, no tone, no channel; on receive several tones at once as well.
    EXPECT_EQ(readings(name, 3).size(), 83U + 1 + 39 + 1 + 1);
    EXPECT_EQ(readings(name, 4).size(), 83U + 1 + 39 + 1 + 1 + 1);
    EXPECT_TRUE(readings(name, 4).contains("Multiple"));
    EXPECT_TRUE(readings(name, 4).contains("Invalid"));
}

TEST(EveryReading, UsesEveryKey) {
    const auto contents = loaded("every-reading");
    for (const auto& info : model::channelKeys) {
        std::size_t different = 0;
        for (const auto& channel : contents.channels) {
            different += channel[static_cast<std::size_t>(info.key)] != model::emptyChannelValue(info.key) ? 1U : 0U;
        }
        EXPECT_GT(different, 10U) << info.name;
    }
}

TEST(FixedBandwidth, HasNoBandwidthAndNoNarrowBandLevels) {
    EXPECT_EQ(readings("fixed-bandwidth", 7), (std::set<std::string>{"N/A", "X"}));
    EXPECT_EQ(readings("fixed-bandwidth", 13), (std::set<std::string>{"X"}));
}

TEST(Pmr446, IsNarrowWithoutTheChannelsSayingSo) {
    EXPECT_EQ(readings("pmr446", 7), (std::set<std::string>{"Narrow", "X"}));
}

TEST(Maritime, TransmitsDuplexChannels4Point6MegahertzAbove) {
    const auto contents = loaded("maritime");
    int duplex = 0;
    for (const auto& channel : contents.channels) {
        const auto tx = base::toDouble(channel[static_cast<std::size_t>(model::ChannelKey::TxFreq)]);
        const auto rx = base::toDouble(channel[static_cast<std::size_t>(model::ChannelKey::RxFreq)]);
        if (tx != 0 && tx != rx) {
            EXPECT_EQ(tx - rx, 4'600'000.0);
            ++duplex;
        }
    }
    EXPECT_EQ(duplex, 33);
}

}  // namespace
}  // namespace telvar::cli
