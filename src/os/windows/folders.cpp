#include "os/folders.h"

#include <windows.h>

#include <filesystem>

#include "win/failure.h"
#include "win/text.h"
#include "win/user_folder.h"

namespace telvar::os {

std::expected<std::string, FileError> userStateFolder() {
    const auto folder = win::userFolder();
    if (folder.empty()) {
        return std::unexpected(FileError{"LOCALAPPDATA", "Does not name a folder"});
    }
    if (const auto attributes = ::GetFileAttributesW(folder.c_str());
        attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
        const auto error = attributes == INVALID_FILE_ATTRIBUTES ? ::GetLastError() : ERROR_ALREADY_EXISTS;
        return std::unexpected(FileError{win::narrow(folder), win::errorText(error)});
    }
    return win::narrow(folder);
}

// Names differ in letter case only for the eye, so they are folded.
std::string canonicalPath(const std::string& path) {
    std::error_code error;
    const auto absolute = std::filesystem::absolute(win::wide(path), error);
    if (error) {
        return path;
    }
    const auto canonical = std::filesystem::weakly_canonical(absolute, error);
    auto text = (error ? absolute.lexically_normal() : canonical).wstring();
    ::CharUpperBuffW(text.data(), static_cast<DWORD>(text.size()));
    return win::narrow(text);
}

}  // namespace telvar::os
