#include "win/files.h"

#include <algorithm>
#include <atomic>

#include "win/handle.h"
#include "win/text.h"

namespace telvar::win {

namespace {

constexpr std::wstring_view prefix = LR"(\\?\)";
constexpr std::wstring_view sharePrefix = LR"(\\?\UNC\)";
constexpr std::wstring_view share = LR"(\\)";

// Room for the names of temporary and backup files within MAX_PATH.
constexpr std::size_t longName = 230;
// Some network drives refuse larger pieces.
constexpr std::size_t largestPiece = std::size_t{1} << 20U;
constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

[[nodiscard]] Failed lastFailure() noexcept { return Failed(GetLastError()); }

[[nodiscard]] bool exists(const std::wstring& path) noexcept {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

[[nodiscard]] std::wstring absolutePath(const std::wstring& path) {
    std::wstring absolute(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    absolute.resize(GetFullPathNameW(path.c_str(), static_cast<DWORD>(absolute.size()), absolute.data(), nullptr));
    return absolute;
}

[[nodiscard]] Done writeAndFlush(HANDLE file, std::string_view contents) noexcept {
    while (!contents.empty()) {
        DWORD written = 0;
        const auto piece = static_cast<DWORD>(std::min(contents.size(), largestPiece));
        if (WriteFile(file, contents.data(), piece, &written, nullptr) == FALSE) {
            return lastFailure();
        }
        contents.remove_prefix(written);
    }
    if (FlushFileBuffers(file) == FALSE) {
        return lastFailure();
    }
    return {};
}

// A short name of its own, so that a file whose name is as long as names may be can still be replaced.
[[nodiscard]] std::wstring temporaryBeside(const std::wstring& path) {
    static std::atomic<unsigned> counter{0};
    const std::wstring folder = path.substr(0, path.find_last_of(L"\\/:") + 1);
    std::wstring name;
    do {
        name =
            folder + L".telvar-" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(counter++) + L".tmp";
    } while (exists(name));
    return name;
}

}  // namespace

std::wstring longPath(std::wstring_view path) {
    std::wstring plain(path);
    if (plain.size() < longName || plain.starts_with(prefix)) {
        return plain;
    }
    const std::wstring absolute = absolutePath(plain);
    return absolute.starts_with(share) ? std::wstring(sharePrefix) + absolute.substr(share.size())
                                       : std::wstring(prefix) + absolute;
}

std::wstring widePath(std::string_view path) { return longPath(wide(path)); }

std::wstring plainPath(const std::wstring& path) {
    if (path.starts_with(sharePrefix)) {
        return std::wstring(share) + path.substr(sharePrefix.size());
    }
    return path.starts_with(prefix) ? path.substr(prefix.size()) : path;
}

std::expected<std::wstring, DWORD> followLinks(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
        return path;
    }
    const Handle file(
        CreateFileW(path.c_str(), 0, shareAll, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (!file) {
        return lastFailure();
    }
    std::wstring real(GetFinalPathNameByHandleW(file.get(), nullptr, 0, 0), L'\0');
    real.resize(GetFinalPathNameByHandleW(file.get(), real.data(), static_cast<DWORD>(real.size()), 0));
    return real.empty() ? path : real;
}

Done mayWrite(const std::wstring& path) {
    // Asked by itself: a system that lets its administrator open such a file for writing would pass the next step.
    if ((GetFileAttributesW(path.c_str()) & FILE_ATTRIBUTE_READONLY) != 0) {
        return Failed(ERROR_ACCESS_DENIED);
    }
    const Handle file(CreateFileW(path.c_str(), GENERIC_WRITE, shareAll, nullptr, OPEN_EXISTING, 0, nullptr));
    if (!file) {
        return lastFailure();
    }
    return {};
}

// The new file inherits its access rights from its folder, as every file that a user creates there.
Done writeThrough(const std::wstring& path, std::string_view contents) {
    Handle file(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) {
        return lastFailure();
    }
    const Done done = writeAndFlush(file.get(), contents);
    if (!done) {
        file.reset();
        removeQuietly(path);
    }
    return done;
}

Done renameOver(const std::wstring& from, const std::wstring& to) {
    if (MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) == FALSE) {
        return lastFailure();
    }
    return {};
}

void removeQuietly(const std::wstring& path) noexcept { DeleteFileW(path.c_str()); }

Done replaceFile(const std::wstring& path, std::string_view contents) {
    const auto target = followLinks(longPath(path));
    if (!target) {
        return Failed(target.error());
    }
    if (exists(*target)) {
        if (const Done allowed = mayWrite(*target); !allowed) {
            return allowed;
        }
    }
    const std::wstring fresh = temporaryBeside(*target);
    if (const Done written = writeThrough(fresh, contents); !written) {
        return written;
    }
    const Done renamed = renameOver(fresh, *target);
    if (!renamed) {
        removeQuietly(fresh);
    }
    return renamed;
}

}  // namespace telvar::win
