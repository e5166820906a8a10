// Who may do what: the level that is in force, and the passwords of the levels. The settings keep only salted hashes of
// them. They keep honest people from mistakes; whoever may change the user's settings can remove them.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/pinned.h"
#include "desk/settings.h"

namespace telvar::desk {

// By the numbers that the control knows.
enum class AccessLevel : std::int16_t { View = 0, EditChannels = 3, Everything = 5 };

inline constexpr std::array<AccessLevel, 3> accessLevels{AccessLevel::View, AccessLevel::EditChannels,
                                                         AccessLevel::Everything};

// "View", "Edit channels", "Everything".
[[nodiscard]] std::string_view nameOf(AccessLevel level) noexcept;

// The next one above, for somebody who wants to log in without saying for what.
[[nodiscard]] AccessLevel levelAbove(AccessLevel level) noexcept;

// The system's cryptography.
class PasswordHasher : private base::Pinned {
public:
    virtual ~PasswordHasher() = default;

    // Another one each time. Throws base::Failure where the system has no cryptography, as matches() does.
    [[nodiscard]] virtual std::string hash(const std::string& password) const = 0;
    // False for what is no hash.
    [[nodiscard]] virtual bool matches(const std::string& password, const std::string& hash) const = 0;
};

class Access {
public:
    // Begins at the highest level that needs no password. Both outlive this.
    Access(SettingsStore& settings, const PasswordHasher& hasher);

    [[nodiscard]] AccessLevel level() const noexcept { return level_; }
    void enter(AccessLevel level) noexcept { level_ = level; }

    // Never View, which is what is left to somebody who logged out.
    [[nodiscard]] bool needsPassword(AccessLevel level) const;
    // Throws as the hasher does.
    [[nodiscard]] bool admits(AccessLevel level, const std::string& password) const;
    // An empty one takes the password of the level away. Throws base::Failure where it cannot be protected or kept.
    void setPassword(AccessLevel level, const std::string& password);
    // Why a password of that level must not be set, or taken away, as things are: whoever may do everything may also
    // edit channels, so that a password for less would protect nothing. Empty where it may.
    [[nodiscard]] std::string_view gapLeftBy(AccessLevel level, bool removing) const;

private:
    SettingsStore& settings_;
    const PasswordHasher& hasher_;
    AccessLevel level_ = AccessLevel::View;
};

}  // namespace telvar::desk
