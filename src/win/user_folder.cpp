#include "win/user_folder.h"

#include <windows.h>

namespace telvar::win {

std::wstring userFolder() {
    std::wstring folder(GetEnvironmentVariableW(L"LOCALAPPDATA", nullptr, 0), L'\0');
    folder.resize(GetEnvironmentVariableW(L"LOCALAPPDATA", folder.data(), static_cast<DWORD>(folder.size())));
    if (!folder.empty()) {
        folder += L"\\Telvar";
        CreateDirectoryW(folder.c_str(), nullptr);
    }
    return folder;
}

}  // namespace telvar::win
