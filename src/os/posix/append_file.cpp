#include "os/append_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "os/posix/descriptor.h"

namespace telvar::os {

struct AppendFile::Handle {
    Descriptor file;
};

AppendFile::AppendFile(std::unique_ptr<Handle> handle) : handle_(std::move(handle)) {}
AppendFile::AppendFile(AppendFile&&) noexcept = default;
AppendFile& AppendFile::operator=(AppendFile&&) noexcept = default;
AppendFile::~AppendFile() = default;

std::expected<AppendFile, FileError> AppendFile::open(const std::string& path) {
    Descriptor file(::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0666));
    if (!file) {
        return std::unexpected(FileError{path, errorText(errno)});
    }
    return AppendFile(std::make_unique<Handle>(Handle{std::move(file)}));
}

bool AppendFile::write(std::string_view text) noexcept {
    while (!text.empty()) {
        const auto written = ::write(handle_->file.get(), text.data(), text.size());
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            return false;
        }
        text.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

}  // namespace telvar::os
