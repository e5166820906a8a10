// The single steps of reading and replacing a file, as each platform does them. Only files.cpp calls them; every
// failure is the system's description of it.
#pragma once

#include <cstddef>
#include <expected>
#include <string>
#include <string_view>

namespace telvar::os::steps {

using Failed = std::unexpected<std::string>;
using Done = std::expected<void, std::string>;

enum class Kind { Nothing, File, Folder, Other };

// Nothing as well where the system does not let us look; the step that follows says why.
[[nodiscard]] Kind kindOf(const std::string& path);
[[nodiscard]] bool isFolderSeparator(char c) noexcept;

// Where a chain of links ends; the path itself where it is no link. A link to nothing is a failure.
[[nodiscard]] std::expected<std::string, std::string> followLinks(const std::string& path);
[[nodiscard]] Done mayWrite(const std::string& path);
[[nodiscard]] std::expected<std::string, std::string> read(const std::string& path, std::size_t limit);

// A number that no other running process has.
[[nodiscard]] unsigned long processNumber();
// Creates `path`, which must not exist yet, with the access rights of `model` where that exists, and returns once the
// contents are on the disk. What it created it removes on a failure.
[[nodiscard]] Done writeThrough(const std::string& path, std::string_view contents, const std::string& model);
// Gives the file a second name, or copies it where the file system has no second names. `copy` must not exist.
[[nodiscard]] Done keepAs(const std::string& path, const std::string& copy);
[[nodiscard]] Done renameOver(const std::string& from, const std::string& to);
// Makes renames inside the folder of `path` durable. The file is complete either way, so there is nothing to report.
void flushFolderOf(const std::string& path) noexcept;
void removeQuietly(const std::string& path) noexcept;

}  // namespace telvar::os::steps
