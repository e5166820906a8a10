#include "win/settings.h"

#include <cstring>

namespace telvar::win {

Settings::Settings(const std::wstring& key) {
    if (RegCreateKeyExW(HKEY_CURRENT_USER, key.c_str(), 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, &key_, nullptr) !=
        ERROR_SUCCESS) {
        key_ = nullptr;
    }
}

Settings::~Settings() {
    if (key_ != nullptr) {
        RegCloseKey(key_);
    }
}

std::optional<std::int32_t> Settings::number(const wchar_t* name) const {
    DWORD value = 0;
    DWORD size = sizeof value;
    if (key_ == nullptr ||
        RegGetValueW(key_, nullptr, name, RRF_RT_REG_DWORD, nullptr, &value, &size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(value);
}

bool Settings::setNumber(const wchar_t* name, std::int32_t value) {
    return key_ != nullptr && RegSetValueExW(key_, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value),
                                             sizeof value) == ERROR_SUCCESS;
}

std::vector<std::wstring> Settings::list(const wchar_t* name) const {
    DWORD size = 0;
    if (key_ == nullptr ||
        RegGetValueW(key_, nullptr, name, RRF_RT_REG_MULTI_SZ, nullptr, nullptr, &size) != ERROR_SUCCESS) {
        return {};
    }
    std::wstring text(size / sizeof(wchar_t) + 2, L'\0');
    size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    if (RegGetValueW(key_, nullptr, name, RRF_RT_REG_MULTI_SZ, nullptr, text.data(), &size) != ERROR_SUCCESS) {
        return {};
    }
    std::vector<std::wstring> result;
    for (const wchar_t* item = text.c_str(); *item != L'\0'; item += std::wcslen(item) + 1) {
        result.emplace_back(item);
    }
    return result;
}

bool Settings::setList(const wchar_t* name, const std::vector<std::wstring>& values) {
    std::wstring text;
    for (const std::wstring& value : values) {
        text += value;
        text += L'\0';
    }
    text += L'\0';
    return key_ != nullptr && RegSetValueExW(key_, name, 0, REG_MULTI_SZ, reinterpret_cast<const BYTE*>(text.data()),
                                             static_cast<DWORD>(text.size() * sizeof(wchar_t))) == ERROR_SUCCESS;
}

bool Settings::has(const wchar_t* name) const {
    return key_ != nullptr && RegQueryValueExW(key_, name, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
}

std::optional<std::wstring> Settings::text(const wchar_t* name) const {
    DWORD size = 0;
    if (key_ == nullptr || RegGetValueW(key_, nullptr, name, RRF_RT_REG_SZ, nullptr, nullptr, &size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    std::wstring value(size / sizeof(wchar_t) + 1, L'\0');
    size = static_cast<DWORD>(value.size() * sizeof(wchar_t));
    if (RegGetValueW(key_, nullptr, name, RRF_RT_REG_SZ, nullptr, value.data(), &size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    value.resize(std::wcslen(value.c_str()));
    return value;
}

bool Settings::setText(const wchar_t* name, const std::wstring& value) {
    return key_ != nullptr && RegSetValueExW(key_, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                                             static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t))) == ERROR_SUCCESS;
}

bool Settings::remove(const wchar_t* name) {
    const LSTATUS result = key_ == nullptr ? ERROR_INVALID_HANDLE : RegDeleteValueW(key_, name);
    return result == ERROR_SUCCESS || result == ERROR_FILE_NOT_FOUND;
}

}  // namespace telvar::win
