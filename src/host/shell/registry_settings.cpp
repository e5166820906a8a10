#include "host/shell/registry_settings.h"

#include "com/kit/text.h"

namespace telvar::host {

bool RegistrySettings::has(std::string_view name) const { return values_.has(com::wide(name).c_str()); }

std::optional<std::int32_t> RegistrySettings::number(std::string_view name) const {
    return values_.number(com::wide(name).c_str());
}

std::optional<std::string> RegistrySettings::text(std::string_view name) const {
    const std::optional<std::wstring> value = values_.text(com::wide(name).c_str());
    return value ? std::optional(com::narrow(*value)) : std::nullopt;
}

std::vector<std::string> RegistrySettings::list(std::string_view name) const {
    std::vector<std::string> result;
    for (const std::wstring& each : values_.list(com::wide(name).c_str())) {
        result.push_back(com::narrow(each));
    }
    return result;
}

bool RegistrySettings::setNumber(std::string_view name, std::int32_t value) {
    return values_.setNumber(com::wide(name).c_str(), value);
}

bool RegistrySettings::setText(std::string_view name, const std::string& value) {
    return values_.setText(com::wide(name).c_str(), com::wide(value));
}

bool RegistrySettings::setList(std::string_view name, const std::vector<std::string>& values) {
    std::vector<std::wstring> wide;
    for (const std::string& each : values) {
        wide.push_back(com::wide(each));
    }
    return values_.setList(com::wide(name).c_str(), wide);
}

bool RegistrySettings::remove(std::string_view name) { return values_.remove(com::wide(name).c_str()); }

}  // namespace telvar::host
