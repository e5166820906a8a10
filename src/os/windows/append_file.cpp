#include "os/append_file.h"

#include <windows.h>

#include "win/failure.h"
#include "win/files.h"
#include "win/handle.h"

namespace telvar::os {

struct AppendFile::Handle {
    win::Handle file;
};

AppendFile::AppendFile(std::unique_ptr<Handle> handle) : handle_(std::move(handle)) {}
AppendFile::AppendFile(AppendFile&&) noexcept = default;
AppendFile& AppendFile::operator=(AppendFile&&) noexcept = default;
AppendFile::~AppendFile() = default;

std::expected<AppendFile, FileError> AppendFile::open(const std::string& path) {
    win::Handle file(::CreateFileW(win::widePath(path).c_str(), FILE_APPEND_DATA,
                                   FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_ALWAYS,
                                   FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) {
        return std::unexpected(FileError{path, win::errorText(::GetLastError())});
    }
    return AppendFile(std::make_unique<Handle>(Handle{std::move(file)}));
}

bool AppendFile::write(std::string_view text) noexcept {
    DWORD written = 0;
    return ::WriteFile(handle_->file.get(), text.data(), static_cast<DWORD>(text.size()), &written, nullptr) != 0 &&
           written == text.size();
}

}  // namespace telvar::os
