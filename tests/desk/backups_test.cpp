// The files that sends have kept, by their names.
#include "desk/backups.h"

#include <gtest/gtest.h>

#include "fakes.h"

namespace telvar::tests {

using namespace desk;
using namespace std::chrono_literals;

namespace {

constexpr auto second = std::chrono::local_days(2024y / 3 / 1) + 14h + 5min + 9s;

}  // namespace

TEST(BackupNames, HoldDateTimeAndNumber) {
    struct Case {
        const char* name;
        std::chrono::local_seconds made;
        int number = 1;
    };
    for (const Case& each : {
             Case{"radio 2024-03-01 14.05.09.telvar-radio", second},
             Case{"radio 2024-03-01 14.05.09 (2).telvar-radio", second, 2},
             Case{"radio 2024-03-01 14.05.09 (12).telvar-radio", second, 12},
             Case{"radio 2024-03-01 14.05.09 (9999).telvar-radio", second, 9999},
             Case{"radio 2024-02-29 00.00.00.telvar-radio", std::chrono::local_days(2024y / 2 / 29) + 0s},
             Case{"radio 2023-12-31 23.59.59.telvar-radio", std::chrono::local_days(2024y / 1 / 1) - 1s},
             Case{"radio 1601-01-01 00.00.00.telvar-radio", std::chrono::local_days(1601y / 1 / 1) + 0s},
             Case{"radio 9999-12-31 23.59.59.telvar-radio", std::chrono::local_days(9999y / 12 / 31) + 24h - 1s},
         }) {
        const auto backup = readBackupName(each.name);
        ASSERT_TRUE(backup) << each.name;
        EXPECT_EQ(backup->made.time_since_epoch(), each.made.time_since_epoch()) << each.name;
        EXPECT_EQ(backup->number, each.number) << each.name;
        EXPECT_EQ(backup->path, "") << each.name;
    }
}

TEST(BackupNames, AnythingElseIsNone) {
    for (const char* name : {
             "",
             "radio",
             "radio ",
             "radio.telvar-radio",
             "radio 2024-03-01 14.05.09",
             "radio 2024-03-01 14.05.09.telvar-radio.bak",
             "radio 2024-03-01 14.05.09.TELVAR-RADIO",
             "radio 2024-03-01 14.05.09 .telvar-radio",
             "radio 2024-03-01T14.05.09.telvar-radio",
             "radio 2024-03-01 14:05:09.telvar-radio",
             "Radio 2024-03-01 14.05.09.telvar-radio",
             "table 2024-03-01 14.05.09.telvar-radio",
             "radio 24-03-01 14.05.09.telvar-radio",
             "radio 2024-3-1 14.05.09.telvar-radio",
             "radio 20x4-03-01 14.05.09.telvar-radio",
             "radio -024-03-01 14.05.09.telvar-radio",
             "radio 2024-00-01 14.05.09.telvar-radio",
             "radio 2024-13-01 14.05.09.telvar-radio",
             "radio 2024-03-00 14.05.09.telvar-radio",
             "radio 2024-03-32 14.05.09.telvar-radio",
             "radio 2024-02-30 14.05.09.telvar-radio",
             "radio 2023-02-29 14.05.09.telvar-radio",
             "radio 2024-03-01 24.05.09.telvar-radio",
             "radio 2024-03-01 14.60.09.telvar-radio",
             "radio 2024-03-01 14.05.60.telvar-radio",
             "radio 2024-03-01 14.05.telvar-radio",
             "radio 2024-03-01 14.05.0",
             "radio 2024-03-01 14.05.09 ().telvar-radio",
             "radio 2024-03-01 14.05.09 (x).telvar-radio",
             "radio 2024-03-01 14.05.09 (2.telvar-radio",
             "radio 2024-03-01 14.05.09 (2)",
             "radio 2024-03-01 14.05.09(2).telvar-radio",
             "radio 2024-03-01 14.05.09 (-2).telvar-radio",
             "radio 2024-03-01 14.05.09 (10000).telvar-radio",
             // Before the computer's calendar begins.
             "radio 1600-12-31 23.59.59.telvar-radio",
             "radio 0000-01-01 00.00.00.telvar-radio",
         }) {
        EXPECT_EQ(readBackupName(name), std::nullopt) << testing::PrintToString(name);
    }
}

TEST(BackupList, BeginsWithTheNewest) {
    FakeSystem system;
    system.folders["D:\\kept"] = {
        "radio 2024-03-01 14.05.09.telvar-radio", "radio 2024-03-01 14.05.09 (2).telvar-radio",
        "radio 2023-12-31 23.59.59.telvar-radio", "other.txt",
        "radio 2024-03-01 14.05.10.telvar-radio", "radio 2024-03-01 14.05.09 (10).telvar-radio"};
    Notes paths;
    for (const Backup& backup : backupsIn(system, "D:\\kept")) {
        paths.push_back(backup.path);
    }
    EXPECT_EQ(paths, (Notes{"D:\\kept\\radio 2024-03-01 14.05.10.telvar-radio",
                            "D:\\kept\\radio 2024-03-01 14.05.09 (10).telvar-radio",
                            "D:\\kept\\radio 2024-03-01 14.05.09 (2).telvar-radio",
                            "D:\\kept\\radio 2024-03-01 14.05.09.telvar-radio",
                            "D:\\kept\\radio 2023-12-31 23.59.59.telvar-radio"}));
}

TEST(BackupList, IsEmptyWithoutAFolder) {
    FakeSystem system;
    system.folders[""] = {"radio 2024-03-01 14.05.09.telvar-radio"};
    EXPECT_TRUE(backupsIn(system, "").empty());
    EXPECT_TRUE(backupsIn(system, "D:\\nowhere").empty());
}

TEST(BackupList, TheUsualFolderIsTheUsersOwn) {
    FakeSystem system;
    EXPECT_EQ(usualBackupFolder(system), "C:\\Users\\me\\Telvar\\radio-backups");
    system.user.clear();
    EXPECT_EQ(usualBackupFolder(system), "");
}

TEST(BackupTexts, HaveTheNumberBehindTheDateWhereThereIsASecond) {
    const FakeSystem system;
    EXPECT_EQ(backupText(system, {.path = "x", .made = second, .number = 1}), "at 1709301909");
    EXPECT_EQ(backupText(system, {.path = "x", .made = second, .number = 2}), "at 1709301909 (2)");
    EXPECT_EQ(backupText(system, {.path = "x", .made = second, .number = 12}), "at 1709301909 (12)");
}

}  // namespace telvar::tests
