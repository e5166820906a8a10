// A text file that grows line by line (UTF-8, LF) and is on the disk after each, so that it tells how far a program
// came.
#pragma once

#include <string>
#include <string_view>

#include "win/handle.h"

namespace telvar::walk {

class Transcript {
public:
    // Throws com::ComFailure where the file cannot be written.
    explicit Transcript(const std::wstring& path);

    // From any thread.
    void line(std::wstring_view text);

private:
    win::Handle file_;
};

}  // namespace telvar::walk
