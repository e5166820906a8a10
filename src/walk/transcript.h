// A text file that grows line by line (UTF-8, LF) and is on the disk after each, so that it tells how far a program
// came.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace telvar::walk {

class Transcript {
public:
    // Throws com::ComFailure where the file cannot be written.
    explicit Transcript(const std::wstring& path);
    Transcript(const Transcript&) = delete;
    Transcript& operator=(const Transcript&) = delete;
    Transcript(Transcript&&) = delete;
    Transcript& operator=(Transcript&&) = delete;
    ~Transcript();

    // From any thread.
    void line(std::wstring_view text);

private:
    HANDLE file_;
};

}  // namespace telvar::walk
