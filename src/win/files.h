// Files by the system's own names. Where a step fails, it answers the system's error code.
#pragma once

#include <windows.h>

#include <expected>
#include <string>
#include <string_view>

namespace telvar::win {

using Failed = std::unexpected<DWORD>;
using Done = std::expected<void, DWORD>;

// As the file functions take it: a path near the traditional limit of 260 characters is made absolute and prefixed.
[[nodiscard]] std::wstring longPath(std::wstring_view path);
// Of a path in UTF-8.
[[nodiscard]] std::wstring widePath(std::string_view path);
// Without the prefix.
[[nodiscard]] std::wstring plainPath(const std::wstring& path);

// Where a chain of links ends; the path itself where it is no link. A link to nothing is a failure.
[[nodiscard]] std::expected<std::wstring, DWORD> followLinks(const std::wstring& path);
// Fails also for a file that may not be written to although its folder would allow its replacement.
[[nodiscard]] Done mayWrite(const std::wstring& path);
// Creates a file, which must not exist yet, and returns once the contents are on the disk. What it created it removes
// on a failure.
[[nodiscard]] Done writeThrough(const std::wstring& path, std::string_view contents);
// Returns once the new name is on the disk.
[[nodiscard]] Done renameOver(const std::wstring& from, const std::wstring& to);
void removeQuietly(const std::wstring& path) noexcept;

// Replaces a file so that at every moment, a power cut included, its name holds the old contents or the new ones,
// complete; by a temporary file in the same folder, which takes the name. A link is followed. After a failure the file
// is as it was and nothing else is left.
[[nodiscard]] Done replaceFile(const std::wstring& path, std::string_view contents);

}  // namespace telvar::win
