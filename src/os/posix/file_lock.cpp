#include "os/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>

#include "os/posix/descriptor.h"

namespace telvar::os {

struct FileLock::Handle {
    Descriptor file;
};

FileLock::FileLock(std::unique_ptr<Handle> handle) : handle_(std::move(handle)) {}
FileLock::FileLock(FileLock&&) noexcept = default;
FileLock& FileLock::operator=(FileLock&&) noexcept = default;
FileLock::~FileLock() = default;

std::expected<FileLock, FileError> FileLock::acquire(const std::string& lockFile) { return open(lockFile, true); }

std::expected<FileLock, FileError> FileLock::tryAcquire(const std::string& lockFile) { return open(lockFile, false); }

std::expected<FileLock, FileError> FileLock::open(const std::string& lockFile, bool wait) {
    Descriptor file(::open(lockFile.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666));
    if (!file) {
        return std::unexpected(FileError{lockFile, errorText(errno)});
    }
    while (::flock(file.get(), wait ? LOCK_EX : LOCK_EX | LOCK_NB) != 0) {
        if (errno == EWOULDBLOCK) {
            return std::unexpected(FileError{lockFile, "Is in use by another program"});
        }
        if (errno != EINTR) {
            return std::unexpected(FileError{lockFile, errorText(errno)});
        }
    }
    return FileLock(std::make_unique<Handle>(Handle{std::move(file)}));
}

}  // namespace telvar::os
