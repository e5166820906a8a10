// What the program remembers between runs, in one registry key of the user. A key that cannot be opened or written is
// no failure: reading answers nothing and writing is lost.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "win/registry.h"

namespace telvar::win {

class Settings {
public:
    // `key` is below HKEY_CURRENT_USER and is created when it does not exist.
    explicit Settings(const std::wstring& key);

    // Each that changes something answers whether the value is kept, or gone.
    [[nodiscard]] std::optional<std::int32_t> number(const wchar_t* name) const;
    bool setNumber(const wchar_t* name, std::int32_t value);

    [[nodiscard]] std::vector<std::wstring> list(const wchar_t* name) const;
    bool setList(const wchar_t* name, const std::vector<std::wstring>& values);

    // Whether there is a value of that name, of whatever kind.
    [[nodiscard]] bool has(const wchar_t* name) const;
    [[nodiscard]] std::optional<std::wstring> text(const wchar_t* name) const;
    bool setText(const wchar_t* name, const std::wstring& value);
    bool remove(const wchar_t* name);

private:
    std::optional<RegistryKey> key_;
};

}  // namespace telvar::win
