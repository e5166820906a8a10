// Asks which of the tables that a radio held before it is to hold again.
#pragma once

#include <windows.h>

#include <optional>
#include <span>
#include <string>

#include "desk/backups.h"
#include "desk/window.h"

namespace telvar::host {

// Nothing when the user cancels. `folder` is told where there is nothing to choose.
[[nodiscard]] std::optional<desk::RestoreChoice>
askBackup(HWND owner, const desk::System& system, std::span<const desk::Backup> backups, const std::string& folder);
// Whether the radio's present table may be overwritten.
[[nodiscard]] bool askRestore(HWND owner, const desk::System& system, const desk::Backup& backup);

}  // namespace telvar::host
