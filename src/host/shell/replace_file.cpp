#include "host/shell/replace_file.h"

#include <windows.h>

#include <algorithm>

#include "base/failure.h"
#include "com/kit/failure.h"
#include "com/kit/text.h"

namespace telvar::host {

namespace {

[[noreturn]] void failed(const std::wstring& path, DWORD error) {
    throw base::Failure(com::narrow(path) + " could not be written: " + com::describe(HRESULT_FROM_WIN32(error)));
}

// 0, or the system's error.
DWORD writeAll(HANDLE file, std::string_view contents) {
    constexpr std::size_t most = 1U << 20U;
    while (!contents.empty()) {
        DWORD written = 0;
        if (!WriteFile(file, contents.data(), static_cast<DWORD>(std::min(contents.size(), most)), &written, nullptr)) {
            return GetLastError();
        }
        contents.remove_prefix(written);
    }
    return FlushFileBuffers(file) ? ERROR_SUCCESS : GetLastError();
}

// The folder would allow the replacement of a file that may not be written to.
bool isReadOnly(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

}  // namespace

void replaceFile(const std::wstring& path, std::string_view contents) {
    if (isReadOnly(path)) {
        failed(path, ERROR_ACCESS_DENIED);
    }
    const std::wstring temporary = path + L"." + std::to_wstring(GetCurrentProcessId()) + L".tmp";
    const HANDLE file =
        CreateFileW(temporary.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        failed(path, GetLastError());
    }
    DWORD error = writeAll(file, contents);
    CloseHandle(file);
    if (error == ERROR_SUCCESS &&
        !MoveFileExW(temporary.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
        error = GetLastError();
    }
    if (error != ERROR_SUCCESS) {
        DeleteFileW(temporary.c_str());
        failed(path, error);
    }
}

}  // namespace telvar::host
