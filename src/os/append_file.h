// A file that only grows, such as a trace: what was written stays although the program dies right after.
#pragma once

#include <expected>
#include <memory>
#include <string>
#include <string_view>

#include "os/file_error.h"

namespace telvar::os {

class AppendFile {
public:
    // Created if need be. Others may read it meanwhile.
    [[nodiscard]] static std::expected<AppendFile, FileError> open(const std::string& path);

    AppendFile(AppendFile&&) noexcept;
    AppendFile& operator=(AppendFile&&) noexcept;
    AppendFile(const AppendFile&) = delete;
    AppendFile& operator=(const AppendFile&) = delete;
    ~AppendFile();

    // False where the system refused, for example on a full disk.
    bool write(std::string_view text) noexcept;

private:
    struct Handle;
    explicit AppendFile(std::unique_ptr<Handle> handle);

    std::unique_ptr<Handle> handle_;
};

}  // namespace telvar::os
