// Tables as commands take and give them: a file whose extension tells its format, or "-" for a standard stream.
#pragma once

#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/console.h"
#include "store/table_contents.h"

namespace telvar::cli {

enum class FileFormat { Table, Csv };

inline constexpr std::string_view standardStream = "-";

// By extension, in any letter case; nothing for another one. A standard stream carries a table file.
[[nodiscard]] std::optional<FileFormat> formatOf(const std::string& path);

// A file of an unknown format is refused. A table of CSV has the default radio.
[[nodiscard]] std::expected<store::TableContents, os::FileError> readTable(const Console& console,
                                                                           const std::string& path);
// The channels of CSV; everything else is that of `around`.
[[nodiscard]] std::expected<store::TableContents, os::FileError>
readCsvTable(const Console& console, const std::string& path, const store::TableContents& around);

// What stands in a file or in the standard input, up to the length of the largest table file.
[[nodiscard]] std::expected<std::string, os::FileError> readText(const Console& console, const std::string& path);

// Replaces the file, or writes to the standard output.
[[nodiscard]] std::expected<void, os::FileError> writeTable(const Console& console, const std::string& path,
                                                            const store::TableContents& contents, FileFormat format);

// "1-20,25": numbers and ascending ranges of 1 to 255, separated by commas, in ascending order without repetition.
// Nothing for any other text.
[[nodiscard]] std::optional<std::vector<std::int16_t>> channelList(std::string_view text);

// The text of a table in that format; `name` stands for the file in refusals.
[[nodiscard]] std::expected<std::string, os::FileError> textOf(const Console& console, const std::string& name,
                                                               const store::TableContents& contents, FileFormat format);

// How a file is called in results: its path, or the stream's name.
[[nodiscard]] std::string shownName(const std::string& path, std::string_view stream);

}  // namespace telvar::cli
