// A lock that one holder at a time has, in this process or another one. It hangs on a file of its own, which is created
// when first needed and stays; the system frees it when its holder ends, however that happens.
#pragma once

#include <expected>
#include <memory>
#include <string>

#include "os/file_error.h"

namespace telvar::os {

class FileLock {
public:
    // Waits as long as another holder has it.
    [[nodiscard]] static std::expected<FileLock, FileError> acquire(const std::string& lockFile);
    // "Is in use by another program" where another holder has it.
    [[nodiscard]] static std::expected<FileLock, FileError> tryAcquire(const std::string& lockFile);

    FileLock(FileLock&&) noexcept;
    FileLock& operator=(FileLock&&) noexcept;
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    ~FileLock();

private:
    struct Handle;
    explicit FileLock(std::unique_ptr<Handle> handle);
    [[nodiscard]] static std::expected<FileLock, FileError> open(const std::string& lockFile, bool wait);

    std::unique_ptr<Handle> handle_;
};

// The lock file, in the user's state folder (the temporary one where there is none), that stands for changes of `path`
// by this user's programs. The same file under another spelling of its path has the same lock, links included; other
// files may share it, so hold one at a time.
[[nodiscard]] std::string lockFileFor(const std::string& path);

}  // namespace telvar::os
