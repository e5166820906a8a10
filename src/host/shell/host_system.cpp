#include "host/shell/host_system.h"

#include <windows.h>

#include <array>

#include "base/failure.h"
#include "win/failure.h"
#include "win/files.h"
#include "win/handle.h"
#include "win/text.h"
#include "win/user_folder.h"

namespace telvar::host {

namespace {

SYSTEMTIME systemTimeOf(std::chrono::local_seconds at) {
    const auto days = std::chrono::floor<std::chrono::days>(at);
    const std::chrono::year_month_day date(days);
    const std::chrono::hh_mm_ss time(at - days);
    SYSTEMTIME result{};
    result.wYear = static_cast<WORD>(static_cast<int>(date.year()));
    result.wMonth = static_cast<WORD>(static_cast<unsigned>(date.month()));
    result.wDay = static_cast<WORD>(static_cast<unsigned>(date.day()));
    result.wHour = static_cast<WORD>(time.hours().count());
    result.wMinute = static_cast<WORD>(time.minutes().count());
    result.wSecond = static_cast<WORD>(time.seconds().count());
    return result;
}

std::wstring dateText(const SYSTEMTIME& at, DWORD form) {
    std::array<wchar_t, 80> text{};
    GetDateFormatW(LOCALE_USER_DEFAULT, form, &at, nullptr, text.data(), static_cast<int>(text.size()));
    return text.data();
}

std::wstring timeText(const SYSTEMTIME& at, DWORD form) {
    std::array<wchar_t, 80> text{};
    GetTimeFormatW(LOCALE_USER_DEFAULT, form, &at, nullptr, text.data(), static_cast<int>(text.size()));
    return text.data();
}

}  // namespace

bool HostSystem::exists(const std::string& path) const {
    return GetFileAttributesW(win::wide(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool HostSystem::samePath(const std::string& left, const std::string& right) const {
    return CompareStringOrdinal(win::wide(left).c_str(), -1, win::wide(right).c_str(), -1, TRUE) == CSTR_EQUAL;
}

std::vector<std::string> HostSystem::fileNamesIn(const std::string& folder) const {
    std::vector<std::string> names;
    WIN32_FIND_DATAW entry{};
    const win::Search search(FindFirstFileW((win::wide(folder) + L"\\*").c_str(), &entry));
    if (!search) {
        return names;
    }
    do {
        if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
            names.push_back(win::narrow(entry.cFileName));
        }
    } while (FindNextFileW(search.get(), &entry));
    return names;
}

std::string HostSystem::userFolder() const { return win::narrow(win::userFolder()); }

std::string HostSystem::dateAndTime(std::chrono::local_seconds at) const {
    const SYSTEMTIME time = systemTimeOf(at);
    return win::narrow(dateText(time, DATE_LONGDATE) + L", " + timeText(time, 0));
}

std::string HostSystem::now() const {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return win::narrow(dateText(now, DATE_SHORTDATE) + L" " + timeText(now, TIME_NOSECONDS));
}

int HostSystem::usualSheet() const {
    DWORD code = 0;
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_IPAPERSIZE | LOCALE_RETURN_NUMBER, reinterpret_cast<LPWSTR>(&code),
                   sizeof code / sizeof(wchar_t));
    return static_cast<int>(code);
}

void HostSystem::replaceFile(const std::string& path, const std::string& contents) const {
    if (const auto done = win::replaceFile(win::wide(path), contents); !done) {
        throw base::Failure(path + " could not be written: " + win::errorText(done.error()));
    }
}

}  // namespace telvar::host
