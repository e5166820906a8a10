#include "win/registry.h"

#include <cwchar>

#include "win/failure.h"

namespace telvar::win {

namespace {

void checkStatus(LSTATUS status) {
    if (status != ERROR_SUCCESS) {
        throw SystemFailure(static_cast<DWORD>(status));
    }
}

[[nodiscard]] bool isMissing(LSTATUS status) noexcept {
    return status == ERROR_FILE_NOT_FOUND || status == ERROR_PATH_NOT_FOUND;
}

void checkUnlessMissing(LSTATUS status) {
    if (!isMissing(status)) {
        checkStatus(status);
    }
}

[[nodiscard]] std::size_t bytesOf(std::size_t characters) noexcept { return characters * sizeof(wchar_t); }

}  // namespace

RegistryKey RegistryKey::create(const std::wstring& path) const {
    HKEY key = nullptr;
    checkStatus(RegCreateKeyExW(key_, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_READ | KEY_WRITE, nullptr,
                                &key, nullptr));
    return RegistryKey(KeyHandle(key));
}

std::optional<RegistryKey> RegistryKey::open(const std::wstring& path, REGSAM rights) const {
    HKEY key = nullptr;
    const LSTATUS status = RegOpenKeyExW(key_, path.c_str(), 0, rights, &key);
    if (isMissing(status)) {
        return std::nullopt;
    }
    checkStatus(status);
    return RegistryKey(KeyHandle(key));
}

bool RegistryKey::has(const std::wstring& name) const noexcept {
    return RegQueryValueExW(key_, name.c_str(), nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
}

// Always with a zero at its end, of the value's own or added by the system.
std::optional<std::wstring> RegistryKey::read(const std::wstring& name, DWORD kind) const {
    DWORD bytes = 0;
    if (RegGetValueW(key_, nullptr, name.c_str(), kind, nullptr, nullptr, &bytes) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    // The size may leave the zeros out that the system adds.
    std::wstring text(bytes / sizeof(wchar_t) + 2, L'\0');
    bytes = static_cast<DWORD>(bytesOf(text.size()));
    if (RegGetValueW(key_, nullptr, name.c_str(), kind, nullptr, text.data(), &bytes) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    return text;
}

std::optional<std::wstring> RegistryKey::text(const std::wstring& name) const {
    auto text = read(name, RRF_RT_REG_SZ);
    if (text) {
        text->resize(std::wcslen(text->c_str()));
    }
    return text;
}

std::optional<std::int32_t> RegistryKey::number(const std::wstring& name) const noexcept {
    DWORD value = 0;
    DWORD size = sizeof value;
    if (RegGetValueW(key_, nullptr, name.c_str(), RRF_RT_REG_DWORD, nullptr, &value, &size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(value);
}

std::optional<std::vector<std::wstring>> RegistryKey::list(const std::wstring& name) const {
    const auto text = read(name, RRF_RT_REG_MULTI_SZ);
    if (!text) {
        return std::nullopt;
    }
    std::vector<std::wstring> result;
    for (const wchar_t* item = text->c_str(); *item != L'\0'; item += std::wcslen(item) + 1) {
        result.emplace_back(item);
    }
    return result;
}

void RegistryKey::write(const std::wstring& name, DWORD kind, const void* data, std::size_t bytes) const {
    checkStatus(RegSetValueExW(key_, name.c_str(), 0, kind, static_cast<const BYTE*>(data), static_cast<DWORD>(bytes)));
}

void RegistryKey::set(const std::wstring& name, const std::wstring& text) const {
    write(name, REG_SZ, text.c_str(), bytesOf(text.size() + 1));
}

void RegistryKey::set(const std::wstring& name, std::int32_t number) const {
    write(name, REG_DWORD, &number, sizeof number);
}

void RegistryKey::set(const std::wstring& name, const std::vector<std::wstring>& list) const {
    std::wstring text;
    for (const std::wstring& item : list) {
        text += item;
        text += L'\0';
    }
    write(name, REG_MULTI_SZ, text.c_str(), bytesOf(text.size() + 1));
}

void RegistryKey::remove(const std::wstring& name) const { checkUnlessMissing(RegDeleteValueW(key_, name.c_str())); }

bool RegistryKey::empty() const noexcept {
    DWORD keys = 0;
    DWORD values = 0;
    return RegQueryInfoKeyW(key_, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr, nullptr,
                            nullptr, nullptr) == ERROR_SUCCESS &&
           keys == 0 && values == 0;
}

void RegistryKey::removeTree(const std::wstring& path) const {
    checkUnlessMissing(RegDeleteTreeW(key_, path.c_str()));
    // Wine's own implementation empties the tree but may leave its top.
    checkUnlessMissing(RegDeleteKeyW(key_, path.c_str()));
}

void RegistryKey::removeIfEmpty(const std::wstring& path) const {
    const auto key = open(path);
    if (key && key->empty()) {
        checkStatus(RegDeleteKeyW(key_, path.c_str()));
    }
}

}  // namespace telvar::win
