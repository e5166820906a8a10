#include "os/file_lock.h"

#include <windows.h>

#include "win/failure.h"
#include "win/files.h"
#include "win/handle.h"

namespace telvar::os {

// Closing the file frees the lock.
struct FileLock::Handle {
    win::Handle file;
};

FileLock::FileLock(std::unique_ptr<Handle> handle) : handle_(std::move(handle)) {}
FileLock::FileLock(FileLock&&) noexcept = default;
FileLock& FileLock::operator=(FileLock&&) noexcept = default;
FileLock::~FileLock() = default;

std::expected<FileLock, FileError> FileLock::acquire(const std::string& lockFile) { return open(lockFile, true); }

std::expected<FileLock, FileError> FileLock::tryAcquire(const std::string& lockFile) { return open(lockFile, false); }

std::expected<FileLock, FileError> FileLock::open(const std::string& lockFile, bool wait) {
    win::Handle file(::CreateFileW(win::widePath(lockFile).c_str(), GENERIC_READ | GENERIC_WRITE,
                                   FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_ALWAYS,
                                   FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) {
        return std::unexpected(FileError{lockFile, win::errorText(::GetLastError())});
    }
    OVERLAPPED range{};
    const DWORD flags = LOCKFILE_EXCLUSIVE_LOCK | (wait ? 0U : LOCKFILE_FAIL_IMMEDIATELY);
    if (::LockFileEx(file.get(), flags, 0, 1, 0, &range) == 0) {
        const auto error = ::GetLastError();
        const bool held = error == ERROR_LOCK_VIOLATION || error == ERROR_IO_PENDING;
        return std::unexpected(FileError{lockFile, held ? "Is in use by another program" : win::errorText(error)});
    }
    return FileLock(std::make_unique<Handle>(Handle{std::move(file)}));
}

}  // namespace telvar::os
