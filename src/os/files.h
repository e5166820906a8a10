// Whole files: read at once, and replaced so that at every moment, a power cut included, the name holds either the old
// contents or the new ones, complete. Paths are UTF-8.
#pragma once

#include <cstddef>
#include <expected>
#include <string>
#include <string_view>

#include "os/file_error.h"

namespace telvar::os {

// A folder, an unreadable file and one longer than `limit` bytes are refused.
[[nodiscard]] std::expected<std::string, FileError> readWholeFile(const std::string& path, std::size_t limit);

// Writes a temporary file in the same folder, flushes it to the disk and renames it over `path`; what stood there
// before is kept as `path`.bak. A link is followed, so that the file it names is replaced and not the link. A file that
// may not be written to is refused although its folder would allow the replacement. After a failure `path` is as it was
// and no temporary file is left.
[[nodiscard]] std::expected<void, FileError> replaceFile(const std::string& path, std::string_view contents);

// Makes a new file, which holds its contents completely from the moment on at which its name is there. False where
// something of that name stands already, also where another program was faster: that is left alone.
[[nodiscard]] std::expected<bool, FileError> createFile(const std::string& path, std::string_view contents);

// Something of that name exists, whatever it is.
[[nodiscard]] bool fileExists(const std::string& path);

// The part behind the last folder separator.
[[nodiscard]] std::string_view fileName(std::string_view path) noexcept;

// The file's name without its last extension: "marine" for "tables/marine.telvar", ".telvar" for ".telvar".
[[nodiscard]] std::string_view fileStem(std::string_view path) noexcept;

// The last extension in lower case with its dot, ".telvar" for "Marine.TELVAR"; empty where there is none.
[[nodiscard]] std::string fileExtension(std::string_view path);

}  // namespace telvar::os
