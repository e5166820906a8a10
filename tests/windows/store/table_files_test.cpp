#include <cstdint>
#include <filesystem>
#include <string>

#include "support/temporary_folder.h"
#include "world.h"

namespace telvar::tests {
namespace {

class TableFiles : public StoreWorld {
protected:
    void call(const std::string& method, const Arguments& arguments = {}) { (void)get(*store, method, arguments); }
    [[nodiscard]] std::string text(const std::string& member) { return textOf(get(*store, member)); }

    TemporaryFolder folder;
    std::string path = folder / "Küste.telvar";
};

TEST_F(TableFiles, SaveAndOpenBringTheTableBack) {
    call("NewTable");
    EXPECT_EQ(text("TableOpen"), "True");
    EXPECT_EQ(text("DatabaseTitle"), "Untitled");
    put(*record(4), "TxFreq", Variant(std::int32_t{156'300'000}));
    put(*record(254), "P25TalkgroupID", Variant("12AB"));
    put(*store, "ChannelSpacing", Variant(std::int32_t{12'500}));
    EXPECT_EQ(text("Modified"), "True");

    call("SaveAs", {Variant(path)});
    EXPECT_EQ(text("Modified"), "False");
    EXPECT_EQ(text("FilePath"), path);
    EXPECT_EQ(text("DatabaseTitle"), "Küste");

    call("Close");
    EXPECT_EQ(text("TableOpen"), "False");
    EXPECT_EQ(text("FilePath"), "");
    EXPECT_EQ(textOf(get(*record(4), "TxFreq")), "0");

    call("Open", {Variant(path)});
    EXPECT_EQ(text("TableOpen"), "True");
    EXPECT_EQ(textOf(get(*record(4), "TxFreq")), "156300000");
    EXPECT_EQ(textOf(get(*record(254), "P25TalkgroupID")), "12AB");
    EXPECT_EQ(text("ChannelSpacing"), "12500");
    EXPECT_EQ(text("Modified"), "False");
}

TEST_F(TableFiles, RecordsThatAreHeldShowTheOpenedTable) {
    const auto held = record(4);
    put(*held, "TxFreq", Variant(std::int32_t{156'300'000}));
    call("SaveAs", {Variant(path)});
    put(*held, "TxFreq", Variant(std::int32_t{1}));
    call("Open", {Variant(path)});
    EXPECT_EQ(textOf(get(*held, "TxFreq")), "156300000");
}

TEST_F(TableFiles, SaveKeepsTheOldFileBesideTheNewOne) {
    call("SaveAs", {Variant(path)});
    put(*record(0), "TxFreq", Variant(std::int32_t{145'000'000}));
    call("Save");
    EXPECT_EQ(text("Modified"), "False");
    EXPECT_NE(TemporaryFolder::read(path).find("145000000"), std::string::npos);
    EXPECT_EQ(TemporaryFolder::read(path + ".bak").find("145000000"), std::string::npos);
}

TEST_F(TableFiles, ATableWithoutAFileIsNotSaved) {
    call("NewTable");
    EXPECT_EQ(failureOf([&] { call("Save"); }), "Untitled: the table has no file yet");
}

TEST_F(TableFiles, ADamagedFileIsRefusedWithOneSentenceAndTheOpenTableStays) {
    call("SaveAs", {Variant(path)});
    put(*record(0), "TxFreq", Variant(std::int32_t{145'000'000}));
    const std::string damaged = folder / "damaged.telvar";
    TemporaryFolder::write(damaged, R"({"format": "telvar-channel-table", "version": 1, "channels": [{"channel": 3,)");
    const auto refusal = failureOf([&] { call("Open", {Variant(damaged)}); });
    EXPECT_EQ(refusal.find(damaged + ": "), 0U) << refusal;
    EXPECT_EQ(text("FilePath"), path);
    EXPECT_EQ(text("Modified"), "True");
    EXPECT_EQ(textOf(get(*record(0), "TxFreq")), "145000000");
}

TEST_F(TableFiles, AValueOfAWrongTypeIsNamedWithItsChannelAndKey) {
    const std::string wrong = folder / "wrong.telvar";
    TemporaryFolder::write(
        wrong, R"({"format": "telvar-channel-table", "version": 1, "channels": [{"channel": 3, "TxFreq": "much"}]})");
    const auto refusal = failureOf([&] { call("Open", {Variant(wrong)}); });
    EXPECT_NE(refusal.find("channel 3"), std::string::npos) << refusal;
    EXPECT_NE(refusal.find("TxFreq"), std::string::npos) << refusal;
    EXPECT_EQ(text("TableOpen"), "False");
}

TEST_F(TableFiles, TheFailureReachesEarlyBoundCallersAsErrorInformation) {
    const Bstr missing(folder / "missing.telvar");
    EXPECT_EQ(store->Open(missing.get()), E_FAIL);
    EXPECT_EQ(errorDescription(), missing.text() + ": File not found.");
    EXPECT_EQ(store->Open(nullptr), E_FAIL);
    EXPECT_EQ(errorDescription(), "The name of the file is missing");
    EXPECT_EQ(store->SaveAs(Bstr(folder.name()).get()), E_FAIL);
    EXPECT_NE(errorDescription(), "");
    EXPECT_TRUE(std::filesystem::is_directory(TemporaryFolder::pathOf(folder.name())));
}

TEST_F(TableFiles, ARelativeNameCountsFromThePresentFolder) {
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(TemporaryFolder::pathOf(folder.name()));
    call("SaveAs", {Variant("here.telvar")});
    std::filesystem::current_path(before);
    EXPECT_EQ(text("FilePath"), folder / "here.telvar");
    put(*record(0), "TxFreq", Variant(std::int32_t{145'000'000}));
    call("Save");
    EXPECT_NE(TemporaryFolder::read(folder / "here.telvar").find("145000000"), std::string::npos);
}

}  // namespace
}  // namespace telvar::tests
