#include "host/shell/command_line.h"

#include <gtest/gtest.h>

namespace telvar::tests {

using host::readCommandLine;

TEST(CommandLine, NothingMeansANewTable) {
    const auto options = readCommandLine({});
    ASSERT_TRUE(options);
    EXPECT_EQ(options->file, L"");
    EXPECT_EQ(options->settingsKey, L"Software\\Telvar\\Host");
}

TEST(CommandLine, AFileBecomesAbsolute) {
    const auto options = readCommandLine({L"C:\\tables\\..\\Größe 1.telvar"});
    ASSERT_TRUE(options);
    EXPECT_EQ(options->file, L"C:\\Größe 1.telvar");
}

TEST(CommandLine, ARelativeFileIsTakenFromTheCurrentFolder) {
    const auto options = readCommandLine({L"marine.telvar"});
    ASSERT_TRUE(options);
    EXPECT_EQ(options->file.substr(1, 2), L":\\");
    EXPECT_TRUE(options->file.ends_with(L"\\marine.telvar"));
}

TEST(CommandLine, TheSettingsKeyCanBeChosen) {
    const auto options = readCommandLine({L"--settings", L"Software\\Other", L"C:\\a.telvar"});
    ASSERT_TRUE(options);
    EXPECT_EQ(options->settingsKey, L"Software\\Other");
    EXPECT_EQ(readCommandLine({L"--settings"}).error(), L"The option --settings needs a registry key.");
}

TEST(CommandLine, AfterTwoDashesEverythingIsAFile) {
    const auto options = readCommandLine({L"--", L"--odd.telvar"});
    ASSERT_TRUE(options);
    EXPECT_TRUE(options->file.ends_with(L"\\--odd.telvar"));
}

TEST(CommandLine, WhatIsNotUnderstoodIsRefusedInOneSentence) {
    EXPECT_EQ(readCommandLine({L"--fast"}).error(), L"The option --fast is not known.");
    EXPECT_EQ(readCommandLine({L"a.telvar", L"b.telvar"}).error(), L"Only one channel table can be opened at a time.");
}

}  // namespace telvar::tests
