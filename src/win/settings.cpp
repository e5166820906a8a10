#include "win/settings.h"

#include "win/failure.h"

namespace telvar::win {

namespace {

// Whether it was done.
template <class Change>
bool tried(const std::optional<RegistryKey>& key, Change change) {
    try {
        if (key) {
            change(*key);
        }
        return key.has_value();
    } catch (const SystemFailure&) {
        return false;
    }
}

}  // namespace

Settings::Settings(const std::wstring& key) {
    try {
        key_ = RegistryKey::root(HKEY_CURRENT_USER).create(key);
    } catch (const SystemFailure&) {
        key_.reset();
    }
}

std::optional<std::int32_t> Settings::number(const wchar_t* name) const {
    return key_ ? key_->number(name) : std::nullopt;
}

bool Settings::setNumber(const wchar_t* name, std::int32_t value) {
    return tried(key_, [&](const RegistryKey& key) { key.set(name, value); });
}

std::vector<std::wstring> Settings::list(const wchar_t* name) const {
    return key_ ? key_->list(name).value_or(std::vector<std::wstring>()) : std::vector<std::wstring>();
}

bool Settings::setList(const wchar_t* name, const std::vector<std::wstring>& values) {
    return tried(key_, [&](const RegistryKey& key) { key.set(name, values); });
}

bool Settings::has(const wchar_t* name) const { return key_ && key_->has(name); }

std::optional<std::wstring> Settings::text(const wchar_t* name) const { return key_ ? key_->text(name) : std::nullopt; }

bool Settings::setText(const wchar_t* name, const std::wstring& value) {
    return tried(key_, [&](const RegistryKey& key) { key.set(name, value); });
}

bool Settings::remove(const wchar_t* name) {
    return tried(key_, [&](const RegistryKey& key) { key.remove(name); });
}

}  // namespace telvar::win
