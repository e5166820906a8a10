// What the program was asked to do when it was started.
#pragma once

#include <expected>
#include <string>
#include <vector>

namespace telvar::host {

struct CommandLine {
    // Table file to open; empty for a new table.
    std::wstring file;
    // Registry key below HKEY_CURRENT_USER that keeps the settings.
    std::wstring settingsKey = L"Software\\Telvar\\Host";
};

//   TelvarHost [--settings KEY] [FILE]
// Paths become absolute. On unusable arguments one sentence for the user.
[[nodiscard]] std::expected<CommandLine, std::wstring> readCommandLine(const std::vector<std::wstring>& arguments);

// The arguments of this process, without its own name.
[[nodiscard]] std::vector<std::wstring> processArguments();

[[nodiscard]] std::wstring absolutePath(const std::wstring& path);

}  // namespace telvar::host
