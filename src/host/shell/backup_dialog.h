// Asks which of the tables that a radio held before it is to hold again.
#pragma once

#include <windows.h>

#include <optional>
#include <span>
#include <string>

#include "host/shell/backups.h"

namespace telvar::host {

struct RestoreChoice {
    Backup backup;
    bool load = true;  // the restored table takes the place of the open one
};

// Nothing when the user cancels. `folder` is told where there is nothing to choose.
[[nodiscard]] std::optional<RestoreChoice> askBackup(HWND owner, std::span<const Backup> backups,
                                                     const std::wstring& folder);
// Whether the radio's present table may be overwritten.
[[nodiscard]] bool askRestore(HWND owner, const Backup& backup);

}  // namespace telvar::host
