#include "os/folders.h"

#include <cstdlib>
#include <filesystem>

namespace telvar::os {

namespace {

// Only absolute values count, as the base directory rules demand.
[[nodiscard]] std::string absoluteFrom(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && value[0] == '/' ? value : "";
}

[[nodiscard]] std::string stateFolderName() {
    if (auto state = absoluteFrom("XDG_STATE_HOME"); !state.empty()) {
        return state + "/telvar";
    }
    if (auto home = absoluteFrom("HOME"); !home.empty()) {
        return home + "/.local/state/telvar";
    }
    return {};
}

}  // namespace

std::expected<std::string, FileError> userStateFolder() {
    auto folder = stateFolderName();
    if (folder.empty()) {
        return std::unexpected(FileError{"HOME", "Does not name a folder"});
    }
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) {
        return std::unexpected(FileError{folder, error.message()});
    }
    return folder;
}

std::string canonicalPath(const std::string& path) {
    std::error_code error;
    const auto absolute = std::filesystem::absolute(path, error);
    if (error) {
        return path;
    }
    const auto canonical = std::filesystem::weakly_canonical(absolute, error);
    return (error ? absolute.lexically_normal() : canonical).string();
}

}  // namespace telvar::os
