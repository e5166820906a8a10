#include "os/folders.h"

#include <windows.h>

#include <filesystem>

#include "os/windows/wide_text.h"

namespace telvar::os {

namespace {

[[nodiscard]] std::wstring environment(const wchar_t* variable) {
    std::wstring value(::GetEnvironmentVariableW(variable, nullptr, 0), L'\0');
    value.resize(::GetEnvironmentVariableW(variable, value.data(), static_cast<DWORD>(value.size())));
    return value;
}

}  // namespace

std::expected<std::string, FileError> userStateFolder() {
    const auto local = environment(L"LOCALAPPDATA");
    if (local.empty()) {
        return std::unexpected(FileError{"LOCALAPPDATA", "Does not name a folder"});
    }
    const auto folder = local + L"\\Telvar";
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) {
        return std::unexpected(FileError{narrow(folder), errorText(static_cast<unsigned long>(error.value()))});
    }
    return narrow(folder);
}

// Names differ in letter case only for the eye, so they are folded.
std::string canonicalPath(const std::string& path) {
    std::error_code error;
    const auto absolute = std::filesystem::absolute(wide(path), error);
    if (error) {
        return path;
    }
    const auto canonical = std::filesystem::weakly_canonical(absolute, error);
    auto text = (error ? absolute.lexically_normal() : canonical).wstring();
    ::CharUpperBuffW(text.data(), static_cast<DWORD>(text.size()));
    return narrow(text);
}

}  // namespace telvar::os
