#include "walk/transcript.h"

#include "com/kit/failure.h"
#include "com/kit/text.h"

namespace telvar::walk {

Transcript::Transcript(const std::wstring& path)
    : file_(CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL,
                        nullptr)) {
    if (file_ == INVALID_HANDLE_VALUE) {
        throw com::ComFailure(HRESULT_FROM_WIN32(GetLastError()),
                              "The file " + com::narrow(path) + " cannot be written");
    }
}

Transcript::~Transcript() { CloseHandle(file_); }

// One write, so that lines of two threads do not mix.
void Transcript::line(std::wstring_view text) {
    const std::string bytes = com::narrow(text) + '\n';
    DWORD written = 0;
    WriteFile(file_, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

}  // namespace telvar::walk
