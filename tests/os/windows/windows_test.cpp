// What only Windows has: its own locales, read-only files, and folders named by its environment.
#include <gtest/gtest.h>
#include <windows.h>

#include "os/files.h"
#include "os/folders.h"
#include "os/locale.h"
#include "support/temporary_folder.h"
#include "win/failure.h"
#include "win/text.h"

namespace telvar::os {
namespace {

using tests::TemporaryFolder;

TEST(WindowsLocale, SeparatorsAreTheSystems) {
    EXPECT_EQ(numberFormatOf("de_DE"), base::NumberFormat{.decimalSeparator = ','});
    EXPECT_EQ(numberFormatOf("en-GB"), base::NumberFormat{.decimalSeparator = '.'});
}

TEST(WindowsFiles, AReadOnlyFileIsRefused) {
    const TemporaryFolder folder;
    const auto table = folder / "table.telvar";
    TemporaryFolder::write(table, "old");
    ASSERT_NE(::SetFileAttributesW(win::wide(table).c_str(), FILE_ATTRIBUTE_READONLY), 0);
    const auto done = replaceFile(table, "new");
    ::SetFileAttributesW(win::wide(table).c_str(), FILE_ATTRIBUTE_NORMAL);
    ASSERT_FALSE(done);
    EXPECT_EQ(done.error().what, win::errorText(ERROR_ACCESS_DENIED));
    EXPECT_EQ(TemporaryFolder::read(table), "old");
}

TEST(WindowsFiles, AFileThatAnotherProgramKeepsIsNotReplaced) {
    const TemporaryFolder folder;
    const auto table = folder / "table.telvar";
    TemporaryFolder::write(table, "old");
    const HANDLE other =
        ::CreateFileW(win::wide(table).c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(other, INVALID_HANDLE_VALUE);
    EXPECT_FALSE(replaceFile(table, "new"));
    ::CloseHandle(other);
    EXPECT_EQ(TemporaryFolder::read(table), "old");
    EXPECT_TRUE(replaceFile(table, "new"));
}

TEST(WindowsPaths, LetterCaseMakesNoOtherFile) {
    const TemporaryFolder folder;
    EXPECT_EQ(canonicalPath(folder / "Table.telvar"), canonicalPath(folder / "table.TELVAR"));
}

}  // namespace
}  // namespace telvar::os
