#include "walk/transcript.h"

#include "com/kit/failure.h"
#include "win/text.h"

namespace telvar::walk {

Transcript::Transcript(const std::wstring& path)
    : file_(CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL,
                        nullptr)) {
    if (!file_) {
        throw com::ComFailure(HRESULT_FROM_WIN32(GetLastError()),
                              "The file " + win::narrow(path) + " cannot be written");
    }
}

// One write, so that lines of two threads do not mix.
void Transcript::line(std::wstring_view text) {
    const std::string bytes = win::narrow(text) + '\n';
    DWORD written = 0;
    WriteFile(file_.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

}  // namespace telvar::walk
