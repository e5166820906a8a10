#include "os/file_lock.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <utility>

#include "os/folders.h"

namespace telvar::os {

namespace {

// FNV-1a, 64 bits: the same on every platform and in every release. Two files that share a hash only wait for each
// other.
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
    std::snprintf(name.data(), name.size(), "/%016llx.lock",
                  static_cast<unsigned long long>(hashOf(canonicalPath(path))));
    return lockFolder() + name.data();
}

}  // namespace telvar::os
