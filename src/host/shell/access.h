// Who may do what: the level that is in force, and the passwords of the levels. The settings keep only salted hashes of
// them. They keep honest people from mistakes; whoever may change the user's settings can remove them.
#pragma once

#include <array>
#include <string>

#include "win/settings.h"

namespace telvar::host {

// By the numbers that the control knows.
enum class AccessLevel : short { View = 0, EditChannels = 3, Everything = 5 };

inline constexpr std::array<AccessLevel, 3> accessLevels{AccessLevel::View, AccessLevel::EditChannels,
                                                         AccessLevel::Everything};

// "View", "Edit channels", "Everything".
[[nodiscard]] const wchar_t* nameOf(AccessLevel level) noexcept;

class Access {
public:
    // Begins at the highest level that needs no password.
    explicit Access(win::Settings& settings);

    [[nodiscard]] AccessLevel level() const noexcept { return level_; }
    void enter(AccessLevel level) noexcept { level_ = level; }

    // Never View, which is what is left to somebody who logged out.
    [[nodiscard]] bool needsPassword(AccessLevel level) const;
    // Throws com::ComFailure where the system has no cryptography.
    [[nodiscard]] bool admits(AccessLevel level, const std::wstring& password) const;
    // An empty one takes the password of the level away. Throws com::ComFailure where it cannot be protected or kept.
    void setPassword(AccessLevel level, const std::wstring& password);

private:
    win::Settings& settings_;
    AccessLevel level_ = AccessLevel::View;
};

}  // namespace telvar::host
