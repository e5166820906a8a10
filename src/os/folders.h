// Folders that the system gives a user, and the one name that a file has however it is spelled.
#pragma once

#include <expected>
#include <string>

#include "os/file_error.h"

namespace telvar::os {

// Where this product keeps what it remembers for the user between two runs: "telvar" in $XDG_STATE_HOME or
// ~/.local/state, "Telvar" in %LOCALAPPDATA%. Created if need be; no separator at the end.
[[nodiscard]] std::expected<std::string, FileError> userStateFolder();

// Absolute, without links, "." and ".."; of a path whose end does not exist yet, the part that exists is resolved.
[[nodiscard]] std::string canonicalPath(const std::string& path);

}  // namespace telvar::os
