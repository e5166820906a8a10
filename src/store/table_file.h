// The table file: UTF-8 JSON, one line a channel, described in docs/file-format.md. Reading is all or nothing; every
// refusal is one sentence that names the file and, where it lies inside the table, the channel and the key.
#pragma once

#include <cstddef>
#include <expected>
#include <string>
#include <string_view>

#include "os/file_error.h"
#include "store/table_contents.h"

namespace telvar::store {

inline constexpr std::string_view tableFormat = "telvar-channel-table";
inline constexpr int tableVersion = 1;
inline constexpr std::string_view tableExtension = ".telvar";

// Far beyond any table, and little enough to be read into memory without a thought.
inline constexpr std::size_t largestTableFile = std::size_t{64} << 20U;

// `name` stands for the file in refusals.
[[nodiscard]] std::expected<TableContents, os::FileError> parseTable(std::string_view text, const std::string& name);

// The file's text. Refused where a value is of a kind that the file could not give back, which only a program that puts
// such values into the store brings about.
[[nodiscard]] std::expected<std::string, os::FileError> tableText(const TableContents& contents,
                                                                  const std::string& name);

[[nodiscard]] std::expected<TableContents, os::FileError> loadTable(const std::string& path);
// Replaces the file as os::replaceFile does.
[[nodiscard]] std::expected<void, os::FileError> saveTable(const std::string& path, const TableContents& contents);

}  // namespace telvar::store
