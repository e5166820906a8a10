// The program's settings in one registry key of the user.
#pragma once

#include "desk/settings.h"
#include "win/settings.h"

namespace telvar::host {

class RegistrySettings final : public desk::SettingsStore {
public:
    // `key` is below HKEY_CURRENT_USER and is created when it does not exist. One that cannot be opened holds nothing.
    explicit RegistrySettings(const std::wstring& key) : values_(key) {}

    [[nodiscard]] bool has(std::string_view name) const override;
    [[nodiscard]] std::optional<std::int32_t> number(std::string_view name) const override;
    [[nodiscard]] std::optional<std::string> text(std::string_view name) const override;
    [[nodiscard]] std::vector<std::string> list(std::string_view name) const override;
    bool setNumber(std::string_view name, std::int32_t value) override;
    bool setText(std::string_view name, const std::string& value) override;
    bool setList(std::string_view name, const std::vector<std::string>& values) override;
    bool remove(std::string_view name) override;

private:
    win::Settings values_;
};

}  // namespace telvar::host
