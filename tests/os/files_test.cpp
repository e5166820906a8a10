#include "os/files.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace telvar::os {
namespace {

using tests::TemporaryFolder;
using Names = std::vector<std::string>;

constexpr std::size_t plenty = 1'000'000;

class Files : public testing::Test {
protected:
    TemporaryFolder folder;
    std::string table = folder / "table.telvar";
};

TEST_F(Files, AReplacedFileHoldsTheNewContentsAndTheOldOnesAreKept) {
    TemporaryFolder::write(table, "old");
    ASSERT_TRUE(replaceFile(table, "new"));
    EXPECT_EQ(TemporaryFolder::read(table), "new");
    EXPECT_EQ(TemporaryFolder::read(table + ".bak"), "old");
    EXPECT_EQ(folder.entries(), (Names{"table.telvar", "table.telvar.bak"}));
}

TEST_F(Files, TheBackupIsAlwaysTheLastContentsButOne) {
    for (const auto* contents : {"one", "two", "three"}) {
        ASSERT_TRUE(replaceFile(table, contents));
    }
    EXPECT_EQ(TemporaryFolder::read(table), "three");
    EXPECT_EQ(TemporaryFolder::read(table + ".bak"), "two");
}

TEST_F(Files, ANewFileHasNoBackup) {
    ASSERT_TRUE(replaceFile(table, "first"));
    EXPECT_EQ(folder.entries(), Names{"table.telvar"});
}

TEST_F(Files, ACreatedFileIsComplete) {
    EXPECT_EQ(createFile(table, "first"), true);
    EXPECT_EQ(TemporaryFolder::read(table), "first");
    EXPECT_EQ(folder.entries(), Names{"table.telvar"});
}

TEST_F(Files, WhatStandsThereAlreadyIsNotCreatedOver) {
    TemporaryFolder::write(table, "old");
    EXPECT_EQ(createFile(table, "new"), false);
    EXPECT_EQ(TemporaryFolder::read(table), "old");
    EXPECT_EQ(folder.entries(), Names{"table.telvar"});
}

TEST_F(Files, AFileIsNotCreatedWhereThereIsNoFolder) {
    const auto created = createFile(folder / "nowhere/table.telvar", "new");
    ASSERT_FALSE(created);
    EXPECT_EQ(created.error().path, folder / "nowhere/table.telvar");
}

TEST_F(Files, BytesAreWrittenAndReadAsTheyAre) {
    std::string bytes("\r\n\0\x1a\xff\n", 6);
    for (int at = 0; at < 20; ++at) {
        bytes += bytes.substr(0, 40'000);
    }
    ASSERT_TRUE(replaceFile(table, bytes));
    EXPECT_EQ(readWholeFile(table, plenty).value(), bytes);
}

TEST_F(Files, NamesInAnyScriptAreFound) {
    const auto name = folder / "Küste \xe6\xb5\xb7.telvar";
    ASSERT_TRUE(replaceFile(name, "x"));
    EXPECT_TRUE(fileExists(name));
    EXPECT_EQ(TemporaryFolder::read(name), "x");
    EXPECT_EQ(folder.entries(), Names{"Küste \xe6\xb5\xb7.telvar"});
}

TEST_F(Files, APathBeyondTheTraditionalLimitWorks) {
    const std::string part(100, 'a');
    std::filesystem::create_directory(TemporaryFolder::pathOf(folder / part));
    const auto name = folder / (part + "/" + std::string(150, 'b') + ".telvar");
    ASSERT_TRUE(replaceFile(name, "one"));
    ASSERT_TRUE(replaceFile(name, "two"));
    EXPECT_EQ(readWholeFile(name, plenty).value(), "two");
    EXPECT_EQ(readWholeFile(name + ".bak", plenty).value(), "one");
}

TEST_F(Files, AMissingFolderIsAFailureThatNamesTheFile) {
    const auto nowhere = folder / "missing/table.telvar";
    const auto done = replaceFile(nowhere, "x");
    ASSERT_FALSE(done);
    EXPECT_EQ(done.error().path, nowhere);
    EXPECT_FALSE(done.error().what.empty());
    EXPECT_FALSE(done.error().what.ends_with('.'));
    EXPECT_EQ(folder.entries(), Names{});
}

TEST_F(Files, AFolderIsNeitherReadNorReplaced) {
    EXPECT_EQ(readWholeFile(folder.name(), plenty).error().what, "Is a folder");
    EXPECT_EQ(replaceFile(folder.name(), "x").error().what, "Is a folder");
}

TEST_F(Files, ABackupThatCannotBeKeptLeavesTheFileAsItWas) {
    TemporaryFolder::write(table, "old");
    std::filesystem::create_directories(TemporaryFolder::pathOf(table + ".bak/full"));
    const auto done = replaceFile(table, "new");
    ASSERT_FALSE(done);
    EXPECT_TRUE(done.error().what.starts_with("The old file cannot be kept as table.telvar.bak: "))
        << done.error().what;
    EXPECT_EQ(TemporaryFolder::read(table), "old");
    EXPECT_EQ(folder.entries(), (Names{"table.telvar", "table.telvar.bak"}));
}

TEST_F(Files, AMissingFileCannotBeRead) {
    const auto contents = readWholeFile(table, plenty);
    ASSERT_FALSE(contents);
    EXPECT_EQ(contents.error().path, table);
    EXPECT_FALSE(fileExists(table));
}

TEST_F(Files, AFileLongerThanTheLimitIsRefusedAndOneOfItsLengthIsNot) {
    TemporaryFolder::write(table, "12345");
    EXPECT_EQ(readWholeFile(table, 5).value(), "12345");
    EXPECT_EQ(readWholeFile(table, 4).error().sentence(), table + ": Is larger than 4 bytes.");
}

TEST_F(Files, AnEmptyFileReadsAsNothing) {
    TemporaryFolder::write(table, "");
    EXPECT_EQ(readWholeFile(table, plenty).value(), "");
}

TEST(FileNames, ArePartsOfAPath) {
    EXPECT_EQ(fileName("a/b/c.telvar"), "c.telvar");
    EXPECT_EQ(fileName("c.telvar"), "c.telvar");
    EXPECT_EQ(fileName("a/"), "");
    EXPECT_EQ(fileStem("a.b/marine.old.telvar"), "marine.old");
    EXPECT_EQ(fileStem("a.b/marine"), "marine");
    EXPECT_EQ(fileStem(".telvar"), ".telvar");
    EXPECT_EQ(fileExtension("a.b/Marine.TELVAR"), ".telvar");
    EXPECT_EQ(fileExtension("a.b/marine"), "");
    EXPECT_EQ(fileExtension(".telvar"), "");
}

TEST(FileErrors, AreOneSentence) {
    EXPECT_EQ((FileError{"a.telvar", "Is a folder"}.sentence()), "a.telvar: Is a folder.");
    EXPECT_EQ((FileError{"a.telvar", "Not found."}.sentence()), "a.telvar: Not found.");
}

}  // namespace
}  // namespace telvar::os
