#include "host/shell/registry_settings.h"

#include "win/text.h"

namespace telvar::host {

bool RegistrySettings::has(std::string_view name) const { return values_.has(win::wide(name).c_str()); }

std::optional<std::int32_t> RegistrySettings::number(std::string_view name) const {
    return values_.number(win::wide(name).c_str());
}

std::optional<std::string> RegistrySettings::text(std::string_view name) const {
    const std::optional<std::wstring> value = values_.text(win::wide(name).c_str());
    return value ? std::optional(win::narrow(*value)) : std::nullopt;
}

std::vector<std::string> RegistrySettings::list(std::string_view name) const {
    std::vector<std::string> result;
    for (const std::wstring& each : values_.list(win::wide(name).c_str())) {
        result.push_back(win::narrow(each));
    }
    return result;
}

bool RegistrySettings::setNumber(std::string_view name, std::int32_t value) {
    return values_.setNumber(win::wide(name).c_str(), value);
}

bool RegistrySettings::setText(std::string_view name, const std::string& value) {
    return values_.setText(win::wide(name).c_str(), win::wide(value));
}

bool RegistrySettings::setList(std::string_view name, const std::vector<std::string>& values) {
    std::vector<std::wstring> wide;
    for (const std::string& each : values) {
        wide.push_back(win::wide(each));
    }
    return values_.setList(win::wide(name).c_str(), wide);
}

bool RegistrySettings::remove(std::string_view name) { return values_.remove(win::wide(name).c_str()); }

}  // namespace telvar::host
