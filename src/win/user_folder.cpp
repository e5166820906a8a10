#include "win/user_folder.h"

#include <windows.h>

#include <filesystem>

namespace telvar::win {

std::wstring userFolder() {
    std::wstring folder(GetEnvironmentVariableW(L"LOCALAPPDATA", nullptr, 0), L'\0');
    folder.resize(GetEnvironmentVariableW(L"LOCALAPPDATA", folder.data(), static_cast<DWORD>(folder.size())));
    if (!folder.empty()) {
        folder += L"\\Telvar";
        std::error_code error;
        std::filesystem::create_directories(folder, error);
    }
    return folder;
}

}  // namespace telvar::win
