// Asks for a level and its password, and for new passwords.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "desk/access.h"

namespace telvar::host {

// `why` is one sentence above the fields, `suggested` the level that is chosen first. Nothing when the user cancels;
// otherwise a level whose password was right.
[[nodiscard]] std::optional<desk::AccessLevel> askLogin(HWND owner, const desk::Access& access, const std::string& why,
                                                        desk::AccessLevel suggested);

// Sets or takes away one level's password; which level's, or nothing when the user cancels.
[[nodiscard]] std::optional<desk::AccessLevel> askNewPassword(HWND owner, desk::Access& access);

}  // namespace telvar::host
