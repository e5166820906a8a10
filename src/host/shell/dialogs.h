// The questions and messages of the program: files to open and save, unsaved changes, failures, the program itself.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "desk/window.h"

namespace telvar::host {

// The title of every message of the program.
inline constexpr wchar_t programTitle[] = L"Telvar";
inline constexpr wchar_t tableExtension[] = L"telvar";

void tellFailure(HWND owner, const std::string& sentence);
// Whether an exchange with the radio is to be cancelled, since the program is to end.
[[nodiscard]] bool askCancelExchange(HWND owner);
[[nodiscard]] desk::SaveAnswer askSave(HWND owner, const std::string& tableName);
// Nothing when the user cancels.
[[nodiscard]] std::optional<std::string> askOpenPath(HWND owner, const std::string& besides);
[[nodiscard]] std::optional<std::string> askSavePath(HWND owner, const std::string& suggested);
[[nodiscard]] std::optional<std::string> askHtmlPath(HWND owner, const std::string& suggested);
void showAbout(HWND owner);

}  // namespace telvar::host
