// The tables that sends have kept before they overwrote them: dated files in one folder, named by the radio link.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace telvar::host {

struct Backup {
    std::wstring path;
    SYSTEMTIME made{};  // local; milliseconds and the day of the week are 0
    int number = 1;     // of those of the same second
};

// The date and number in a file's name like "radio 2024-03-01 14.05.09 (2).telvar-radio"; `path` stays empty. Nothing
// for any other name.
[[nodiscard]] std::optional<Backup> readBackupName(std::wstring_view name);

// The newest first. A folder that does not exist holds none.
[[nodiscard]] std::vector<Backup> backupsIn(const std::wstring& folder);

// Where a link keeps them that was told no folder; empty where the user has no folder for such things.
[[nodiscard]] std::wstring usualBackupFolder();

// Date and time as the user writes them.
[[nodiscard]] std::wstring backupText(const Backup& backup);

}  // namespace telvar::host
