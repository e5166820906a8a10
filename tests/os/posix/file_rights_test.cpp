// What only this platform's files have: access rights, links, and files that are no regular ones.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "os/files.h"
#include "support/temporary_folder.h"
#include "support/unprivileged.h"

namespace telvar::os {
namespace {

using tests::TemporaryFolder;
using Names = std::vector<std::string>;

class FileRights : public testing::Test {
protected:
    TemporaryFolder folder;
    std::string table = folder / "table.telvar";
};

TEST_F(FileRights, AReplacedFileKeepsItsAccessRights) {
    TemporaryFolder::write(table, "old");
    ASSERT_EQ(::chmod(table.c_str(), 0640), 0);
    ASSERT_TRUE(replaceFile(table, "new"));
    struct stat status{};
    ASSERT_EQ(::stat(table.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0640U);
}

TEST_F(FileRights, AFileThatMayNotBeWrittenToIsRefused) {
    TemporaryFolder::write(table, "old");
    ASSERT_EQ(::chmod(table.c_str(), 0444), 0);
    ASSERT_EQ(::chmod(folder.name().c_str(), 0777), 0);
    const tests::Unprivileged nobody;
    EXPECT_EQ(replaceFile(table, "new").error().sentence(), table + ": Permission denied.");
    EXPECT_EQ(TemporaryFolder::read(table), "old");
    EXPECT_EQ(folder.entries(), Names{"table.telvar"});
}

TEST_F(FileRights, AReadOnlyFolderIsRefused) {
    ASSERT_EQ(::chmod(folder.name().c_str(), 0555), 0);
    const tests::Unprivileged nobody;
    EXPECT_EQ(replaceFile(table, "new").error().sentence(), table + ": Permission denied.");
}

TEST_F(FileRights, AnUnreadableFileIsRefused) {
    TemporaryFolder::write(table, "old");
    ASSERT_EQ(::chmod(table.c_str(), 0), 0);
    ASSERT_EQ(::chmod(folder.name().c_str(), 0755), 0);
    const tests::Unprivileged nobody;
    EXPECT_EQ(readWholeFile(table, 100).error().sentence(), table + ": Permission denied.");
}

TEST_F(FileRights, ALinkIsFollowed) {
    std::filesystem::create_directory(TemporaryFolder::pathOf(folder / "real"));
    const auto real = folder / "real/table.telvar";
    TemporaryFolder::write(real, "old");
    std::filesystem::create_symlink("real/table.telvar", TemporaryFolder::pathOf(table));
    ASSERT_TRUE(replaceFile(table, "new"));
    EXPECT_TRUE(std::filesystem::is_symlink(TemporaryFolder::pathOf(table)));
    EXPECT_EQ(TemporaryFolder::read(real), "new");
    EXPECT_EQ(TemporaryFolder::read(real + ".bak"), "old");
    EXPECT_EQ(folder.entries(), (Names{"real", "table.telvar"}));
}

TEST_F(FileRights, ALinkToNothingIsRefused) {
    std::filesystem::create_symlink("nothing", TemporaryFolder::pathOf(table));
    EXPECT_EQ(replaceFile(table, "x").error().what, "Is a link to a file that does not exist");
    EXPECT_TRUE(fileExists(table));
}

TEST_F(FileRights, APipeIsReadToItsEndAndNeverReplaced) {
    ASSERT_EQ(::mkfifo(table.c_str(), 0600), 0);
    EXPECT_EQ(replaceFile(table, "x").error().what, "Is not a regular file");
    EXPECT_EQ(readWholeFile("/dev/null", 100).value(), "");
    EXPECT_EQ(readWholeFile("/dev/zero", 100).error().what, "Is larger than 100 bytes");
}

TEST_F(FileRights, AWriteThatEndsHalfWayLeavesTheFileAsItWas) {
    TemporaryFolder::write(table, "old");
    const tests::FileSizeLimit limit(4096);
    EXPECT_EQ(replaceFile(table, std::string(8192, 'x')).error().sentence(), table + ": File too large.");
    EXPECT_EQ(TemporaryFolder::read(table), "old");
    EXPECT_EQ(folder.entries(), Names{"table.telvar"});
}

}  // namespace
}  // namespace telvar::os
