// Clock, locale and folders.
#include <gtest/gtest.h>

#include <filesystem>

#include "os/clock.h"
#include "os/folders.h"
#include "os/locale.h"
#include "support/temporary_folder.h"

namespace telvar::os {
namespace {

TEST(Clock, TextIsSortable) {
    EXPECT_EQ(isoText({.year = 2024, .month = 3, .day = 1, .hour = 4, .minute = 5, .second = 9}),
              "2024-03-01 04:05:09");
}

TEST(Clock, TellsAPlausibleTime) {
    const auto now = localTime();
    EXPECT_GE(now.year, 2024);
    EXPECT_TRUE(now.month >= 1 && now.month <= 12) << now.month;
    EXPECT_TRUE(now.day >= 1 && now.day <= 31) << now.day;
    EXPECT_TRUE(now.hour >= 0 && now.hour <= 23) << now.hour;
}

TEST(Locale, AnUnknownOneIsNotThere) {
    EXPECT_FALSE(numberFormatOf("xx_nowhere"));
    EXPECT_FALSE(numberFormatOf(""));
}

TEST(Locale, TheUsersSeparatorIsOneThatNumbersCanBeWrittenWith) {
    const auto format = userNumberFormat();
    EXPECT_FALSE(format.decimalSeparator >= '0' && format.decimalSeparator <= '9');
    EXPECT_EQ(base::readDouble(base::numberText(6.25, format), format).value(), 6.25);
}

TEST(Folders, TheStateFolderIsThere) {
    const auto folder = userStateFolder();
    ASSERT_TRUE(folder) << folder.error().sentence();
    EXPECT_TRUE(std::filesystem::is_directory(tests::TemporaryFolder::pathOf(*folder)));
}

TEST(Folders, APathHasOneCanonicalSpelling) {
    const tests::TemporaryFolder folder;
    EXPECT_EQ(canonicalPath(folder / "a/../b"), canonicalPath(folder / "b"));
    EXPECT_NE(canonicalPath(folder / "a"), canonicalPath(folder / "b"));
}

}  // namespace
}  // namespace telvar::os
