#include "host/shell/backups.h"

#include <algorithm>
#include <array>
#include <memory>
#include <tuple>
#include <type_traits>

#include "win/user_folder.h"

namespace telvar::host {

namespace {

constexpr std::wstring_view extension = L".telvar-radio";

struct CloseSearch {
    void operator()(HANDLE search) const noexcept { FindClose(search); }
};
using Search = std::unique_ptr<std::remove_pointer_t<HANDLE>, CloseSearch>;

// Takes the text from the front, if it stands there.
bool take(std::wstring_view& text, std::wstring_view what) noexcept {
    if (!text.starts_with(what)) {
        return false;
    }
    text.remove_prefix(what.size());
    return true;
}

// Takes that many digits, then the text behind them.
bool takeNumber(std::wstring_view& text, std::size_t digits, WORD& number, std::wstring_view behind) noexcept {
    if (text.size() < digits) {
        return false;
    }
    int value = 0;
    for (const wchar_t digit : text.substr(0, digits)) {
        if (digit < L'0' || digit > L'9') {
            return false;
        }
        value = value * 10 + (digit - L'0');
    }
    number = static_cast<WORD>(value);
    text.remove_prefix(digits);
    return take(text, behind);
}

// " (2)" and what follows it.
bool takeRepetition(std::wstring_view& text, int& number) noexcept {
    if (!take(text, L" (")) {
        return true;
    }
    const std::size_t digits = text.find(L')');
    WORD read = 0;
    constexpr std::size_t most = 4;
    if (digits == 0 || digits > most || !takeNumber(text, digits, read, L")")) {
        return false;
    }
    number = read;
    return true;
}

auto orderOf(const Backup& backup) {
    const SYSTEMTIME& at = backup.made;
    return std::tuple(at.wYear, at.wMonth, at.wDay, at.wHour, at.wMinute, at.wSecond, backup.number);
}

}  // namespace

std::optional<Backup> readBackupName(std::wstring_view name) {
    Backup backup;
    SYSTEMTIME& at = backup.made;
    const bool read = take(name, L"radio ") && takeNumber(name, 4, at.wYear, L"-") &&
                      takeNumber(name, 2, at.wMonth, L"-") && takeNumber(name, 2, at.wDay, L" ") &&
                      takeNumber(name, 2, at.wHour, L".") && takeNumber(name, 2, at.wMinute, L".") &&
                      takeNumber(name, 2, at.wSecond, L"") && takeRepetition(name, backup.number) && name == extension;
    FILETIME valid{};
    return read && SystemTimeToFileTime(&at, &valid) ? std::optional(backup) : std::nullopt;
}

std::vector<Backup> backupsIn(const std::wstring& folder) {
    std::vector<Backup> backups;
    WIN32_FIND_DATAW entry{};
    const HANDLE first = folder.empty() ? INVALID_HANDLE_VALUE : FindFirstFileW((folder + L"\\*").c_str(), &entry);
    if (first == INVALID_HANDLE_VALUE) {
        return backups;
    }
    const Search search(first);
    do {
        auto backup = readBackupName(entry.cFileName);
        if (backup && (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
            backup->path = folder + L"\\" + entry.cFileName;
            backups.push_back(*std::move(backup));
        }
    } while (FindNextFileW(search.get(), &entry));
    std::ranges::sort(backups, [](const Backup& left, const Backup& right) { return orderOf(left) > orderOf(right); });
    return backups;
}

std::wstring usualBackupFolder() {
    const std::wstring folder = win::userFolder();
    return folder.empty() ? folder : folder + L"\\radio-backups";
}

std::wstring backupText(const Backup& backup) {
    std::array<wchar_t, 80> date{};
    std::array<wchar_t, 80> time{};
    GetDateFormatW(LOCALE_USER_DEFAULT, DATE_LONGDATE, &backup.made, nullptr, date.data(),
                   static_cast<int>(date.size()));
    GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &backup.made, nullptr, time.data(), static_cast<int>(time.size()));
    std::wstring text = std::wstring(date.data()) + L", " + time.data();
    return backup.number == 1 ? text : text + L" (" + std::to_wstring(backup.number) + L")";
}

}  // namespace telvar::host
