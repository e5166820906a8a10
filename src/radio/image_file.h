// A radio's table as a text file: what a radio held before it was overwritten, and what the simulated radio keeps. One
// line a channel and a checksum, so that a damaged or cut file is never taken for a table.
#pragma once

#include <expected>
#include <string>
#include <string_view>

#include "os/file_error.h"
#include "radio/table_image.h"

namespace telvar::radio {

inline constexpr std::string_view imageExtension = ".telvar-radio";

[[nodiscard]] std::string imageText(const TableImage& image);
// What is wrong with it, without a final full stop.
[[nodiscard]] std::expected<TableImage, std::string> parseImage(std::string_view text);

[[nodiscard]] std::expected<TableImage, os::FileError> loadImage(const std::string& path);
// Replaces the file as os::replaceFile does.
[[nodiscard]] std::expected<void, os::FileError> saveImage(const std::string& path, const TableImage& image);

// Saves the image under the present date and time in a folder, which is created if need be; the file's full name. An
// empty folder means "radio-backups" in the user's state folder. Two of the same second get different names,
// also from different programs.
[[nodiscard]] std::expected<std::string, os::FileError> saveDated(const std::string& folder, const TableImage& image);

}  // namespace telvar::radio
