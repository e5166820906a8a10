#include "com/kit/registry_key.h"

#include "com/kit/failure.h"

namespace telvar::com {

namespace {

void checkStatus(LSTATUS status) {
    if (status != ERROR_SUCCESS) {
        throw ComFailure(HRESULT_FROM_WIN32(static_cast<unsigned long>(status)));
    }
}

[[nodiscard]] bool isMissing(LSTATUS status) noexcept {
    return status == ERROR_FILE_NOT_FOUND || status == ERROR_PATH_NOT_FOUND;
}

}  // namespace

RegistryKey::~RegistryKey() {
    if (owned_) {
        RegCloseKey(key_);
    }
}

RegistryKey RegistryKey::create(const std::wstring& path) const {
    HKEY key = nullptr;
    checkStatus(RegCreateKeyExW(key_, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_READ | KEY_WRITE, nullptr,
                                &key, nullptr));
    return RegistryKey(key, true);
}

std::optional<RegistryKey> RegistryKey::open(const std::wstring& path, REGSAM rights) const {
    HKEY key = nullptr;
    const LSTATUS status = RegOpenKeyExW(key_, path.c_str(), 0, rights, &key);
    if (isMissing(status)) {
        return std::nullopt;
    }
    checkStatus(status);
    return RegistryKey(key, true);
}

void RegistryKey::set(const std::wstring& name, const std::wstring& text) const {
    const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    const void* data = text.c_str();
    checkStatus(RegSetValueExW(key_, name.c_str(), 0, REG_SZ, static_cast<const BYTE*>(data), bytes));
}

std::optional<std::wstring> RegistryKey::text(const std::wstring& name) const {
    DWORD bytes = 0;
    const LSTATUS status = RegGetValueW(key_, nullptr, name.c_str(), RRF_RT_REG_SZ, nullptr, nullptr, &bytes);
    if (isMissing(status)) {
        return std::nullopt;
    }
    checkStatus(status);
    std::wstring text(bytes / sizeof(wchar_t), L'\0');
    checkStatus(RegGetValueW(key_, nullptr, name.c_str(), RRF_RT_REG_SZ, nullptr, text.data(), &bytes));
    text.resize(text.find_last_not_of(L'\0') + 1);
    return text;
}

bool RegistryKey::empty() const noexcept {
    DWORD keys = 0;
    DWORD values = 0;
    return RegQueryInfoKeyW(key_, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr, nullptr,
                            nullptr, nullptr) == ERROR_SUCCESS &&
           keys == 0 && values == 0;
}

void RegistryKey::removeTree(const std::wstring& path) const {
    const LSTATUS status = RegDeleteTreeW(key_, path.c_str());
    if (!isMissing(status)) {
        checkStatus(status);
    }
    // Wine's own implementation empties the tree but may leave its top.
    const LSTATUS top = RegDeleteKeyW(key_, path.c_str());
    if (!isMissing(top)) {
        checkStatus(top);
    }
}

void RegistryKey::removeIfEmpty(const std::wstring& path) const {
    const auto key = open(path);
    if (key && key->empty()) {
        checkStatus(RegDeleteKeyW(key_, path.c_str()));
    }
}

}  // namespace telvar::com
