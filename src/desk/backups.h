// The tables that sends have kept before they overwrote them: dated files in one folder, named by the radio link.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "desk/system.h"

namespace telvar::desk {

struct Backup {
    std::string path;
    std::chrono::local_seconds made{};
    int number = 1;  // of those of the same second
    bool operator==(const Backup&) const = default;
};

// The date and number in a file's name like "radio 2024-03-01 14.05.09 (2).telvar-radio"; `path` stays empty. Nothing
// for any other name.
[[nodiscard]] std::optional<Backup> readBackupName(std::string_view name);

// The newest first. A folder that does not exist holds none.
[[nodiscard]] std::vector<Backup> backupsIn(const System& system, const std::string& folder);

// Where a link keeps them that was told no folder; empty where the user has no folder for such things.
[[nodiscard]] std::string usualBackupFolder(const System& system);

// Date and time as the user writes them.
[[nodiscard]] std::string backupText(const System& system, const Backup& backup);

}  // namespace telvar::desk
