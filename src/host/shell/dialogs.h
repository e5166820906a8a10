// The questions and messages of the program: files to open and save, unsaved changes, failures, the program itself.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace telvar::host {

enum class SaveAnswer { Save, DontSave, Cancel };

// The title of every message of the program.
inline constexpr wchar_t programTitle[] = L"Telvar";
inline constexpr wchar_t tableExtension[] = L"telvar";

void tellFailure(HWND owner, const std::wstring& sentence);
// Whether an exchange with the radio is to be cancelled, since the program is to end.
[[nodiscard]] bool askCancelExchange(HWND owner);
[[nodiscard]] SaveAnswer askSave(HWND owner, const std::wstring& tableName);
// Nothing when the user cancels.
[[nodiscard]] std::optional<std::wstring> askOpenPath(HWND owner, const std::wstring& besides);
[[nodiscard]] std::optional<std::wstring> askSavePath(HWND owner, const std::wstring& suggested);
[[nodiscard]] std::optional<std::wstring> askHtmlPath(HWND owner, const std::wstring& suggested);
void showAbout(HWND owner);

}  // namespace telvar::host
