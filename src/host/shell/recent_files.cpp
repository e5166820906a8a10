#include "host/shell/recent_files.h"

#include <windows.h>

#include <shlwapi.h>

#include <algorithm>
#include <array>

namespace telvar::host {

namespace {

constexpr wchar_t valueName[] = L"RecentFiles";
constexpr UINT longestMenuPath = 60;

bool samePath(const std::wstring& left, const std::wstring& right) {
    return CompareStringOrdinal(left.c_str(), -1, right.c_str(), -1, TRUE) == CSTR_EQUAL;
}

void drop(std::vector<std::wstring>& paths, const std::wstring& path) {
    std::erase_if(paths, [&](const std::wstring& each) { return samePath(each, path); });
}

}  // namespace

std::vector<std::wstring> RecentFiles::paths() const {
    std::vector<std::wstring> result = settings_.list(valueName);
    result.resize(std::min(result.size(), limit));
    return result;
}

void RecentFiles::add(const std::wstring& path) {
    std::vector<std::wstring> list = paths();
    drop(list, path);
    list.insert(list.begin(), path);
    list.resize(std::min(list.size(), limit));
    settings_.setList(valueName, list);
}

void RecentFiles::remove(const std::wstring& path) {
    std::vector<std::wstring> list = paths();
    drop(list, path);
    settings_.setList(valueName, list);
}

std::wstring RecentFiles::menuText(std::size_t index, const std::wstring& path) {
    std::array<wchar_t, longestMenuPath + 1> shortened{};
    const std::wstring shown =
        PathCompactPathExW(shortened.data(), path.c_str(), longestMenuPath, 0) ? std::wstring(shortened.data()) : path;
    std::wstring result = L"&" + std::to_wstring(index + 1) + L" ";
    for (const wchar_t letter : shown) {
        result += letter;
        if (letter == L'&') {
            result += L'&';
        }
    }
    return result;
}

}  // namespace telvar::host
