// Files that are replaced whole or not at all.
#include "win/files.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"
#include "win/handle.h"
#include "win/text.h"

namespace telvar::win {
namespace {

using tests::TemporaryFolder;

TEST(Paths, LongOnesAreMadeAbsolute) {
    EXPECT_EQ(widePath("short.telvar"), L"short.telvar");
    EXPECT_TRUE(widePath(std::string(240, 'a')).starts_with(L"\\\\?\\"));
    EXPECT_TRUE(widePath("\\\\server\\" + std::string(240, 'a')).starts_with(L"\\\\?\\UNC\\server"));
}

TEST(Paths, PlainOnesHaveNoPrefix) {
    EXPECT_EQ(plainPath(LR"(\\?\C:\a.dll)"), LR"(C:\a.dll)");
    EXPECT_EQ(plainPath(LR"(\\?\UNC\server\a.dll)"), LR"(\\server\a.dll)");
    EXPECT_EQ(plainPath(LR"(C:\a.dll)"), LR"(C:\a.dll)");
}

class ReplaceFile : public testing::Test {
protected:
    const TemporaryFolder folder;
    const std::string table = folder / "table.html";
    const std::wstring path = wide(table);
};

TEST_F(ReplaceFile, MakesANewOne) {
    EXPECT_TRUE(replaceFile(path, "new"));
    EXPECT_EQ(TemporaryFolder::read(table), "new");
    EXPECT_EQ(folder.entries().size(), 1U);
}

TEST_F(ReplaceFile, LeavesNothingOfTheOldOneAndNoOther) {
    TemporaryFolder::write(table, "much older contents");
    EXPECT_TRUE(replaceFile(path, "new"));
    EXPECT_EQ(TemporaryFolder::read(table), "new");
    EXPECT_EQ(folder.entries().size(), 1U);
}

TEST_F(ReplaceFile, RefusesAReadOnlyOne) {
    TemporaryFolder::write(table, "old");
    ASSERT_TRUE(SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY));
    const Done done = replaceFile(path, "new");
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    ASSERT_FALSE(done);
    EXPECT_EQ(done.error(), DWORD{ERROR_ACCESS_DENIED});
    EXPECT_EQ(TemporaryFolder::read(table), "old");
    EXPECT_EQ(folder.entries().size(), 1U);
}

TEST_F(ReplaceFile, LeavesOneThatAnotherProgramKeepsAsItWas) {
    TemporaryFolder::write(table, "old");
    Handle other(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(other);
    EXPECT_FALSE(replaceFile(path, "new"));
    other.reset();
    EXPECT_EQ(TemporaryFolder::read(table), "old");
    EXPECT_EQ(folder.entries().size(), 1U);
    EXPECT_TRUE(replaceFile(path, "new"));
}

TEST_F(ReplaceFile, RefusesAFolderAndAFolderThatIsNotThere) {
    EXPECT_FALSE(replaceFile(wide(folder.name()), "new"));
    EXPECT_FALSE(replaceFile(wide(folder / "nowhere/table.html"), "new"));
    EXPECT_EQ(folder.entries().size(), 0U);
}

}  // namespace
}  // namespace telvar::win
