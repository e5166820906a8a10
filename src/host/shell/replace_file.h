// Writes a file so that its name holds the old contents or the new ones, complete, whatever happens meanwhile.
#pragma once

#include <string>
#include <string_view>

namespace telvar::host {

// By a temporary file in the same folder, which is flushed to the disk and takes the name. Throws base::Failure with
// the path and the system's reason; the file is then as it was, and nothing else is left.
void replaceFile(const std::wstring& path, std::string_view contents);

}  // namespace telvar::host
