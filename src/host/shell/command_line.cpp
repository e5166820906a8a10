#include "host/shell/command_line.h"

#include <windows.h>

#include <shellapi.h>

#include "win/handle.h"

namespace telvar::host {

namespace {

// A file may begin with dashes after "--".
bool isOption(const std::wstring& argument) { return argument.starts_with(L"--"); }

}  // namespace

std::expected<CommandLine, std::wstring> readCommandLine(const std::vector<std::wstring>& arguments) {
    CommandLine result;
    bool optionsEnded = false;
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        const bool last = argument + 1 == arguments.end();
        if (optionsEnded || !isOption(*argument)) {
            if (!result.file.empty()) {
                return std::unexpected(L"Only one channel table can be opened at a time.");
            }
            result.file = absolutePath(*argument);
        } else if (*argument == L"--") {
            optionsEnded = true;
        } else if (*argument == L"--settings") {
            if (last) {
                return std::unexpected(L"The option --settings needs a registry key.");
            }
            result.settingsKey = *++argument;
        } else {
            return std::unexpected(L"The option " + *argument + L" is not known.");
        }
    }
    return result;
}

std::vector<std::wstring> processArguments() {
    int count = 0;
    const win::LocalMemory owned(CommandLineToArgvW(GetCommandLineW(), &count));
    auto* const list = static_cast<LPWSTR*>(owned.get());
    std::vector<std::wstring> result;
    for (int index = 1; list != nullptr && index < count; ++index) {
        result.emplace_back(list[index]);
    }
    return result;
}

std::wstring absolutePath(const std::wstring& path) {
    const DWORD size = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    std::wstring result(size, L'\0');
    const DWORD length = GetFullPathNameW(path.c_str(), size, result.data(), nullptr);
    if (length == 0 || length >= size) {
        return path;
    }
    result.resize(length);
    return result;
}

}  // namespace telvar::host
