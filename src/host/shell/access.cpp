#include "host/shell/access.h"

#include "com/kit/failure.h"
#include "host/shell/password_hash.h"

namespace telvar::host {

namespace {

std::wstring settingOf(AccessLevel level) { return L"Password" + std::to_wstring(static_cast<int>(level)); }

}  // namespace

const wchar_t* nameOf(AccessLevel level) noexcept {
    switch (level) {
    case AccessLevel::View:
        return L"View";
    case AccessLevel::EditChannels:
        return L"Edit channels";
    case AccessLevel::Everything:
        return L"Everything";
    }
    return L"";
}

Access::Access(win::Settings& settings) : settings_(settings) {
    for (const AccessLevel level : accessLevels) {
        if (!needsPassword(level)) {
            level_ = level;
        }
    }
}

bool Access::needsPassword(AccessLevel level) const {
    return level != AccessLevel::View && settings_.has(settingOf(level).c_str());
}

bool Access::admits(AccessLevel level, const std::wstring& password) const {
    if (!needsPassword(level)) {
        return true;
    }
    // What is there but no text opens nothing either.
    return passwordMatches(password, settings_.text(settingOf(level).c_str()).value_or(L""));
}

void Access::setPassword(AccessLevel level, const std::wstring& password) {
    const std::wstring setting = settingOf(level);
    const bool kept = password.empty() ? settings_.remove(setting.c_str())
                                       : settings_.setText(setting.c_str(), passwordHash(password));
    if (!kept) {
        throw com::ComFailure(E_ACCESSDENIED, "The password could not be kept in the settings");
    }
}

}  // namespace telvar::host
