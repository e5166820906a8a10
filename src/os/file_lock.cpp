#include "os/file_lock.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <utility>

#include "os/folders.h"

namespace telvar::os {

namespace {

// A few files for all tables ever changed, instead of one left behind for each. Two tables that share one only wait for
// each other, and nobody holds two.
constexpr unsigned lockFileCount = 64;

// FNV-1a, 64 bits: the same on every platform and in every release.
[[nodiscard]] std::uint64_t hashOf(std::string_view text) noexcept {
    std::uint64_t hash = 0xcbf29ce484222325U;
    for (const char c : text) {
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3U;
    }
    return hash;
}

// A service may run for a user who has no state folder.
[[nodiscard]] std::string lockFolder() {
    if (auto folder = userStateFolder()) {
        return *std::move(folder);
    }
    std::error_code ignored;
    return std::filesystem::temp_directory_path(ignored).string();
}

}  // namespace

std::string lockFileFor(const std::string& path) {
    std::array<char, 32> name{};
    std::snprintf(name.data(), name.size(), "/table%02u.lock",
                  static_cast<unsigned>(hashOf(canonicalPath(path)) % lockFileCount));
    return lockFolder() + name.data();
}

}  // namespace telvar::os
