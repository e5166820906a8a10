#include "store/reference_data_store.h"

#include <gtest/gtest.h>

#include "base/conversion.h"
#include "store/table_file.h"
#include "support/table_builder.h"
#include "support/temporary_folder.h"

namespace telvar::store {
namespace {

using model::ChannelKey;
using model::StoreMember;
using tests::TemporaryFolder;

class Store : public testing::Test {
protected:
    [[nodiscard]] std::string text(StoreMember member) { return base::toText(store.get(member)); }

    // A file with one channel and a member that this release does not know.
    void writeSample(const std::string& title) {
        TemporaryFolder::write(path, R"({"format": "telvar-channel-table", "version": 1, "title": ")" + title +
                                         R"(", "source": "plan", "channels": [{"channel": 3, "TxFreq": 156300000}]})");
    }

    TemporaryFolder folder;
    std::string path = folder / "marine.telvar";
    ReferenceDataStore store;
};

TEST_F(Store, StartsWithNothingOpen) {
    EXPECT_EQ(text(StoreMember::TableOpen), "False");
    EXPECT_EQ(text(StoreMember::DatabaseTitle), "");
    EXPECT_FALSE(store.modified());
    EXPECT_EQ(store.path(), "");
}

TEST_F(Store, ANewTableIsOpenAndUntitled) {
    store.channel(3).put(ChannelKey::TxFreq, 145'000'000);
    store.put(StoreMember::ChannelSpacing, 12'500);
    store.newTable();
    EXPECT_EQ(text(StoreMember::TableOpen), "True");
    EXPECT_EQ(text(StoreMember::DatabaseTitle), "Untitled");
    EXPECT_EQ(store.title(), "");
    EXPECT_FALSE(store.modified());
    EXPECT_EQ(tests::tableText(store), tests::tableText(*std::make_shared<model::MemoryDataStore>()));
    EXPECT_EQ(text(StoreMember::ChannelSpacing), "25000");
}

TEST_F(Store, AfterClosingNothingIsOpen) {
    writeSample("Marine");
    ASSERT_TRUE(store.open(path));
    store.channel(3).put(ChannelKey::TxFreq, 145'000'000);
    store.close();
    EXPECT_EQ(text(StoreMember::TableOpen), "False");
    EXPECT_EQ(text(StoreMember::DatabaseTitle), "");
    EXPECT_EQ(store.path(), "");
    EXPECT_FALSE(store.modified());
    EXPECT_EQ(store.snapshot(), ReferenceDataStore().snapshot());
}

TEST_F(Store, AnOpenedTableShowsItsTitleAndIsUnmodified) {
    writeSample("Marine");
    store.put(StoreMember::SelectedChannel, std::int16_t{17});
    store.put(StoreMember::GridLoaded, true);
    store.put(StoreMember::DataModified, true);
    ASSERT_TRUE(store.open(path));
    EXPECT_EQ(text(StoreMember::DatabaseTitle), "Marine");
    EXPECT_EQ(text(StoreMember::TableOpen), "True");
    EXPECT_EQ(text(StoreMember::SelectedChannel), "1");
    EXPECT_EQ(text(StoreMember::GridLoaded), "False");
    EXPECT_EQ(text(StoreMember::DataModified), "False");
    EXPECT_EQ(base::toDouble(store.channel(3).get(ChannelKey::TxFreq)), 156'300'000);
    EXPECT_EQ(store.path(), path);
    EXPECT_FALSE(store.modified());
}

TEST_F(Store, ATableWithoutATitleShowsItsFilesName) {
    writeSample("");
    ASSERT_TRUE(store.open(path));
    EXPECT_EQ(text(StoreMember::DatabaseTitle), "marine");
    EXPECT_EQ(store.title(), "");
    ASSERT_TRUE(store.saveAs(folder / "other.telvar"));
    EXPECT_EQ(text(StoreMember::DatabaseTitle), "other");
    EXPECT_EQ(loadTable(folder / "other.telvar").value().title, "");
}

TEST_F(Store, OpeningReplacesWhatWasOpen) {
    writeSample("Marine");
    store.newTable();
    store.channel(9).put(ChannelKey::TxFreq, 145'000'000);
    ASSERT_TRUE(store.open(path));
    EXPECT_EQ(base::toDouble(store.channel(9).get(ChannelKey::TxFreq)), 0.0);
}

TEST_F(Store, ARefusedFileLeavesEverythingAsItWas) {
    writeSample("Marine");
    ASSERT_TRUE(store.open(path));
    store.channel(5).put(ChannelKey::RxFreq, 146'000'000);
    const auto before = store.snapshot();
    const auto revision = store.revision();
    for (
        const auto* contents :
        {"", "{", R"({"format": "telvar-channel-table", "version": 2})",
         R"({"format": "telvar-channel-table", "version": 1, "channels": [{"channel": 5}, {"channel": 6, "scan": 1}]})"}) {
        TemporaryFolder::write(folder / "bad.telvar", contents);
        EXPECT_FALSE(store.open(folder / "bad.telvar")) << contents;
    }
    EXPECT_FALSE(store.open(folder / "missing.telvar"));
    EXPECT_EQ(store.snapshot(), before);
    EXPECT_EQ(store.revision(), revision);
    EXPECT_EQ(store.path(), path);
    EXPECT_TRUE(store.modified());
}

TEST_F(Store, KnowsByItselfThatTheTableWasChanged) {
    store.newTable();
    store.put(StoreMember::SelectedChannel, std::int16_t{9});
    store.put(StoreMember::CommsBusy, true);
    EXPECT_FALSE(store.modified());
    store.channel(1).put(ChannelKey::scan, true);
    EXPECT_TRUE(store.modified());
    store.newTable();
    store.put(StoreMember::P25BoardFitted, true);
    EXPECT_TRUE(store.modified());
    store.newTable();
    store.setReferenceDividerScaling(1);
    EXPECT_TRUE(store.modified());
    store.newTable();
    store.put(StoreMember::DatabaseTitle, base::textValue("Renamed"));
    EXPECT_TRUE(store.modified());
}

TEST_F(Store, SavingKeepsWhatThisReleaseDoesNotKnow) {
    writeSample("Marine");
    ASSERT_TRUE(store.open(path));
    store.channel(4).put(ChannelKey::RxFreq, 156'325'000);
    ASSERT_TRUE(store.save());
    EXPECT_FALSE(store.modified());
    const auto saved = loadTable(path).value();
    EXPECT_EQ(saved.unknown, (UnknownMembers{{.name = "source", .json = "\"plan\""}}));
    EXPECT_EQ(saved, store.snapshot());
    EXPECT_TRUE(TemporaryFolder::read(path + ".bak").find("RxFreq") == std::string::npos);
}

TEST_F(Store, ANewTitleIsSaved) {
    writeSample("Marine");
    ASSERT_TRUE(store.open(path));
    store.put(StoreMember::DatabaseTitle, base::textValue("Harbour"));
    store.put(StoreMember::DataModified, true);
    store.put(StoreMember::ChannelDataModified, true);
    ASSERT_TRUE(store.save());
    EXPECT_EQ(loadTable(path).value().title, "Harbour");
    EXPECT_EQ(text(StoreMember::DataModified), "False");
    EXPECT_EQ(text(StoreMember::ChannelDataModified), "False");
}

TEST_F(Store, ATableWithoutAFileCannotBeSavedBeforeItHasOne) {
    store.newTable();
    store.channel(1).put(ChannelKey::TxFreq, 145'000'000);
    EXPECT_EQ(store.save().error().sentence(), "Untitled: the table has no file yet.");
    ASSERT_TRUE(store.saveAs(path));
    EXPECT_FALSE(store.modified());
    store.channel(1).put(ChannelKey::TxFreq, 145'500'000);
    ASSERT_TRUE(store.save());
    EXPECT_EQ(loadTable(path).value(), store.snapshot());
}

TEST_F(Store, AFailedSaveLeavesTheTableModifiedAndItsFileTheSame) {
    writeSample("Marine");
    ASSERT_TRUE(store.open(path));
    store.channel(1).put(ChannelKey::TxFreq, 145'000'000);
    EXPECT_FALSE(store.saveAs(folder / "missing/marine.telvar"));
    EXPECT_TRUE(store.modified());
    EXPECT_EQ(store.path(), path);
    store.channel(1).put(ChannelKey::TxLevel, 2.5);
    EXPECT_EQ(store.save().error().sentence(), path + R"(: channel 1: "TxLevel" must be a whole number, not 2.5.)");
    EXPECT_EQ(loadTable(path).value().title, "Marine");
}

TEST_F(Store, ASnapshotBringsEverythingBack) {
    writeSample("Marine");
    ASSERT_TRUE(store.open(path));
    const auto before = store.snapshot();
    store.channel(3).put(ChannelKey::TxFreq, 0);
    store.put(StoreMember::DatabaseTitle, base::textValue("Other"));
    store.restore(before);
    EXPECT_EQ(store.snapshot(), before);
    EXPECT_EQ(text(StoreMember::DatabaseTitle), "Marine");
    EXPECT_TRUE(store.modified());
}

}  // namespace
}  // namespace telvar::store
