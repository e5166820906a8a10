// Asks for a level and its password, and for new passwords.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "host/shell/access.h"

namespace telvar::host {

// `why` is one sentence above the fields, `suggested` the level that is chosen first. Nothing when the user cancels;
// otherwise a level whose password was right.
[[nodiscard]] std::optional<AccessLevel> askLogin(HWND owner, const Access& access, const std::wstring& why,
                                                  AccessLevel suggested);

// Sets or takes away one level's password; which level's, or nothing when the user cancels.
[[nodiscard]] std::optional<AccessLevel> askNewPassword(HWND owner, Access& access);

}  // namespace telvar::host
