#include "os/file_steps.h"

#include <windows.h>

#include <algorithm>
#include <vector>

#include "os/windows/handle.h"
#include "os/windows/wide_text.h"

namespace telvar::os::steps {

namespace {

constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
// Some network drives refuse larger pieces.
constexpr std::size_t largestPiece = std::size_t{1} << 20U;

[[nodiscard]] Failed lastFailure() { return Failed(errorText(::GetLastError())); }

[[nodiscard]] Done writeAndFlush(HANDLE file, std::string_view contents) {
    while (!contents.empty()) {
        DWORD written = 0;
        const auto piece = static_cast<DWORD>(std::min(contents.size(), largestPiece));
        if (::WriteFile(file, contents.data(), piece, &written, nullptr) == 0) {
            return lastFailure();
        }
        contents.remove_prefix(written);
    }
    if (::FlushFileBuffers(file) == 0) {
        return lastFailure();
    }
    return {};
}

}  // namespace

Kind kindOf(const std::string& path) {
    const auto attributes = ::GetFileAttributesW(widePath(path).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        return Kind::Nothing;
    }
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        return Kind::Folder;
    }
    return (attributes & FILE_ATTRIBUTE_DEVICE) != 0 ? Kind::Other : Kind::File;
}

bool isFolderSeparator(char c) noexcept { return c == '\\' || c == '/' || c == ':'; }

std::expected<std::string, std::string> followLinks(const std::string& path) {
    const auto attributes = ::GetFileAttributesW(widePath(path).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
        return path;
    }
    const Handle file(::CreateFileW(widePath(path).c_str(), 0, shareAll, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (!file) {
        return lastFailure();
    }
    std::wstring real(::GetFinalPathNameByHandleW(file.get(), nullptr, 0, 0), L'\0');
    real.resize(::GetFinalPathNameByHandleW(file.get(), real.data(), static_cast<DWORD>(real.size()), 0));
    return real.empty() ? path : narrow(real);
}

Done mayWrite(const std::string& path) {
    // Asked by itself: a system that lets its administrator open such a file for writing would pass the next step.
    if ((::GetFileAttributesW(widePath(path).c_str()) & FILE_ATTRIBUTE_READONLY) != 0) {
        return Failed(errorText(ERROR_ACCESS_DENIED));
    }
    const Handle file(
        ::CreateFileW(widePath(path).c_str(), GENERIC_WRITE, shareAll, nullptr, OPEN_EXISTING, 0, nullptr));
    if (!file) {
        return lastFailure();
    }
    return {};
}

std::expected<std::string, std::string> read(const std::string& path, std::size_t limit) {
    const Handle file(
        ::CreateFileW(widePath(path).c_str(), GENERIC_READ, shareAll, nullptr, OPEN_EXISTING, 0, nullptr));
    if (!file) {
        return lastFailure();
    }
    std::string contents;
    std::vector<char> part(65536);
    while (contents.size() <= limit) {
        DWORD got = 0;
        if (::ReadFile(file.get(), part.data(), static_cast<DWORD>(part.size()), &got, nullptr) == 0) {
            // The writing end of a pipe was closed: that is the end.
            if (::GetLastError() == ERROR_BROKEN_PIPE) {
                break;
            }
            return lastFailure();
        }
        if (got == 0) {
            break;
        }
        contents.append(part.data(), got);
    }
    return contents;
}

unsigned long processNumber() { return ::GetCurrentProcessId(); }

// The new file inherits its access rights from its folder, as every file that a user creates there.
Done writeThrough(const std::string& path, std::string_view contents, const std::string& /*model*/) {
    Handle file(
        ::CreateFileW(widePath(path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) {
        return lastFailure();
    }
    auto done = writeAndFlush(file.get(), contents);
    if (!done) {
        ::CloseHandle(file.release());
        removeQuietly(path);
    }
    return done;
}

Done keepAs(const std::string& path, const std::string& copy) {
    if (::CreateHardLinkW(widePath(copy).c_str(), widePath(path).c_str(), nullptr) != 0 ||
        ::CopyFileW(widePath(path).c_str(), widePath(copy).c_str(), TRUE) != 0) {
        return {};
    }
    return lastFailure();
}

Done renameOver(const std::string& from, const std::string& to) {
    if (::MoveFileExW(widePath(from).c_str(), widePath(to).c_str(),
                      MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) == 0) {
        return lastFailure();
    }
    return {};
}

// The renames were written through.
void flushFolderOf(const std::string& /*path*/) noexcept {}

void removeQuietly(const std::string& path) noexcept { ::DeleteFileW(widePath(path).c_str()); }

}  // namespace telvar::os::steps
