#include "os/append_file.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace telvar::tests {
namespace {

TEST(AppendFile, GrowsAtItsEnd) {
    const TemporaryFolder folder;
    const auto path = folder / "tr\u00E4ce.txt";
    TemporaryFolder::write(path, "before\n");
    {
        auto file = os::AppendFile::open(path);
        ASSERT_TRUE(file) << file.error().sentence();
        EXPECT_TRUE(file->write("one\n"));
        EXPECT_EQ(TemporaryFolder::read(path), "before\none\n");
        EXPECT_TRUE(file->write("two\n"));
        EXPECT_TRUE(file->write(""));
    }
    EXPECT_EQ(TemporaryFolder::read(path), "before\none\ntwo\n");
}

TEST(AppendFile, IsMadeWhereThereIsNone) {
    const TemporaryFolder folder;
    ASSERT_TRUE(os::AppendFile::open(folder / "new.txt"));
    EXPECT_EQ(TemporaryFolder::read(folder / "new.txt"), "");
}

TEST(AppendFile, TellsWhichFileItCannotOpen) {
    const TemporaryFolder folder;
    const auto file = os::AppendFile::open(folder / "missing/new.txt");
    ASSERT_FALSE(file);
    EXPECT_EQ(file.error().path, folder / "missing/new.txt");
}

}  // namespace
}  // namespace telvar::tests
