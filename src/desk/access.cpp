#include "desk/access.h"

#include "base/failure.h"

namespace telvar::desk {

namespace {

const TextSetting& settingOf(AccessLevel level) noexcept {
    return level == AccessLevel::Everything ? setting::everythingPassword : setting::editPassword;
}

}  // namespace

std::string_view nameOf(AccessLevel level) noexcept {
    switch (level) {
    case AccessLevel::View:
        return "View";
    case AccessLevel::EditChannels:
        return "Edit channels";
    case AccessLevel::Everything:
        return "Everything";
    }
    return "";
}

AccessLevel levelAbove(AccessLevel level) noexcept {
    return level < AccessLevel::EditChannels ? AccessLevel::EditChannels : AccessLevel::Everything;
}

Access::Access(SettingsStore& settings, const PasswordHasher& hasher) : settings_(settings), hasher_(hasher) {
    for (const AccessLevel level : accessLevels) {
        if (!needsPassword(level)) {
            level_ = level;
        }
    }
}

bool Access::needsPassword(AccessLevel level) const {
    return level != AccessLevel::View && settings_.has(settingOf(level).name);
}

bool Access::admits(AccessLevel level, const std::string& password) const {
    if (!needsPassword(level)) {
        return true;
    }
    // What is there but no text opens nothing either.
    return hasher_.matches(password, settingOf(level).in(settings_).value_or(""));
}

void Access::setPassword(AccessLevel level, const std::string& password) {
    const std::string_view name = settingOf(level).name;
    const bool kept = password.empty() ? settings_.remove(name) : settings_.setText(name, hasher_.hash(password));
    if (!kept) {
        throw base::Failure("The password could not be kept in the settings");
    }
}

std::string_view Access::gapLeftBy(AccessLevel level, bool removing) const {
    if (level == AccessLevel::EditChannels && !removing && !needsPassword(AccessLevel::Everything)) {
        return "Set a password for the level Everything first; everybody can enter it now.";
    }
    if (level == AccessLevel::Everything && removing && needsPassword(AccessLevel::EditChannels)) {
        return "Remove the password of the level Edit channels first.";
    }
    return {};
}

}  // namespace telvar::desk
